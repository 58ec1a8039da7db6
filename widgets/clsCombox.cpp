#include "clsCombox.h"

#include <QComboBox>

void clsCombox::Initial(QComboBox* cmb, const QString& NoValues, const QString& CaptionValues,
                        const QString& FiledFirst) {
    cmb_ = cmb;
    // An empty text is an empty list.
    const QStringList nos = NoValues.isEmpty() ? QStringList() : NoValues.split(',');
    const QStringList caps = CaptionValues.isEmpty() ? QStringList() : CaptionValues.split(',');
    values_.clear();
    int offset = 0;
    if (!FiledFirst.isEmpty()) {
        cmb_->addItem(FiledFirst);
        values_ << FiledFirst;
        offset = 1;
    }
    Q_UNUSED(offset);
    if (nos.size() != caps.size() || nos.isEmpty()) return;
    for (int i = 0; i < nos.size(); ++i) {
        cmb_->addItem(caps[i]);
        values_ << nos[i];
    }
}

int clsCombox::ListIndex() const {
    return cmb_ ? cmb_->currentIndex() : -1;
}

void clsCombox::setListIndex(int index) {
    if (cmb_) cmb_->setCurrentIndex(index);
}

int clsCombox::ListCount() const {
    return cmb_ ? cmb_->count() : 0;
}

void clsCombox::AddItem(const QString& value, const QString& caption) {
    if (!cmb_) return;
    cmb_->addItem(caption);
    values_ << value;
}

QString clsCombox::Caption() const {
    return cmb_ ? cmb_->currentText() : QString();
}

QString clsCombox::No() const {
    const int i = ListIndex();
    if (i < 0 || i >= values_.size()) return QString();
    return values_[i];
}

void clsCombox::setNo(const QString& value) {
    if (!cmb_) return;
    if (value.isEmpty()) {
        cmb_->setCurrentIndex(-1);
        return;
    }
    cmb_->setCurrentIndex(int(values_.indexOf(value)));
}
