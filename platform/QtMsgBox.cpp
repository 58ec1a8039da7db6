#include "QtMsgBox.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>

#include "MsgBox.h"

namespace QtMsgBox {

void Install() {
    MsgBox::SetPresenter([](const MsgBox::Box& box) {
        QMessageBox mb(QApplication::activeWindow());
        mb.setWindowTitle(box.title);
        mb.setText(box.text);
        switch (box.icon) {
            case MsgBox::Icon::Information:
                mb.setIcon(QMessageBox::Information);
                break;
            case MsgBox::Icon::Exclamation:
                mb.setIcon(QMessageBox::Warning);
                break;
            case MsgBox::Icon::Critical:
                mb.setIcon(QMessageBox::Critical);
                break;
            case MsgBox::Icon::Question:
                mb.setIcon(QMessageBox::Question);
                break;
            case MsgBox::Icon::None:
                mb.setIcon(QMessageBox::NoIcon);
                break;
        }
        switch (box.buttons) {
            case MsgBox::Buttons::Ok:
                mb.setStandardButtons(QMessageBox::Ok);
                break;
            case MsgBox::Buttons::YesNo:
                mb.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
                mb.setDefaultButton(QMessageBox::Yes);
                break;
            case MsgBox::Buttons::OkCancel:
                mb.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
                mb.setDefaultButton(QMessageBox::Ok);
                break;
            case MsgBox::Buttons::YesNoCancel:
                mb.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
                mb.setDefaultButton(QMessageBox::Yes);
                break;
        }
        const std::pair<QMessageBox::StandardButton, const char*> captions[] = {
            {QMessageBox::Yes, "是(&Y)"},
            {QMessageBox::No, "否(&N)"},
            {QMessageBox::Ok, "确定"},
            {QMessageBox::Cancel, "取消"}};
        for (const auto& [which, caption] : captions)
            if (QAbstractButton* b = mb.button(which)) b->setText(QString::fromUtf8(caption));
        switch (mb.exec()) {
            case QMessageBox::Yes:
                return MsgBox::Answer::Yes;
            case QMessageBox::No:
                return MsgBox::Answer::No;
            case QMessageBox::Cancel:
                return MsgBox::Answer::Cancel;
            default:
                return MsgBox::Answer::Ok;
        }
    });
}

}  // namespace QtMsgBox
