#pragma once
// Base of the system's windows: a dialog that opens modally over the main
// window. Escape does not close it (a clerk's basket is not thrown away by a
// stray key), and no button takes Enter for itself: each window decides what
// Enter does.
#include <QDialog>

class Form : public QDialog {
    Q_OBJECT
public:
    explicit Form(QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* e) override;
    void showEvent(QShowEvent* e) override;
};
