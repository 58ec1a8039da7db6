#include "MsgRecorder.h"

MsgRecorder::MsgRecorder() {
    previous_ = MsgBox::SetPresenter([this](const MsgBox::Box& box) {
        shown_ << box;
        if (box.buttons == MsgBox::Buttons::Ok) return MsgBox::Answer::Ok;
        if (answers_.isEmpty()) return MsgBox::Answer::Cancel;  // unplanned: neither yes nor no
        return answers_.takeFirst();
    });
}

MsgRecorder::~MsgRecorder() {
    MsgBox::SetPresenter(std::move(previous_));
}

QList<MsgBox::Box> MsgRecorder::Take() {
    QList<MsgBox::Box> out;
    out.swap(shown_);
    return out;
}

QStringList MsgRecorder::TakeTexts() {
    QStringList out;
    for (const auto& b : Take()) out << b.text;
    return out;
}

QString MsgRecorder::Leftovers() {
    QStringList texts;
    for (const auto& b : Take()) texts << b.text;
    answers_.clear();
    return texts.join(" | ");
}
