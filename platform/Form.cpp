#include "Form.h"

#include <QKeyEvent>
#include <QPushButton>

Form::Form(QWidget* parent) : QDialog(parent) {
    setWindowFlags(windowFlags() | Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
}

void Form::keyPressEvent(QKeyEvent* e) {
    if (e->key() == Qt::Key_Escape || e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter) {
        e->accept();
        return;
    }
    QDialog::keyPressEvent(e);
}

void Form::showEvent(QShowEvent* e) {
    for (QPushButton* b : findChildren<QPushButton*>()) {
        b->setAutoDefault(false);
        b->setDefault(false);
    }
    QDialog::showEvent(e);
}
