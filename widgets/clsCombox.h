#pragma once
// A combo box with a hidden value for each entry (a role's GUID behind its name).
#include <QString>
#include <QStringList>

class QComboBox;

class clsCombox {
public:
    // Takes the box and appends the entries: the values and captions are
    // texts joined by ",". With FiledFirst not empty it comes first, being its
    // own value. Lists of different lengths, or empty ones, add nothing more.
    // The box is not cleared here.
    void Initial(QComboBox* cmb, const QString& NoValues, const QString& CaptionValues,
                 const QString& FiledFirst);

    int ListIndex() const;
    void setListIndex(int index);
    int ListCount() const;
    void AddItem(const QString& value, const QString& caption);
    QString Caption() const;
    // The selected entry's hidden value; "" when nothing is selected.
    QString No() const;
    // Selects the entry with this value; an empty or unknown value selects nothing.
    void setNo(const QString& value);
    QComboBox* Combox() const { return cmb_; }

private:
    QComboBox* cmb_ = nullptr;
    QStringList values_;
};
