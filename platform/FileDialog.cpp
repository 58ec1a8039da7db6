#include "FileDialog.h"

#include <QFileDialog>

namespace FileDialog {

namespace {
Presenter& presenter() {
    static Presenter p;
    return p;
}
}  // namespace

Presenter SetPresenter(Presenter p) {
    Presenter old = std::move(presenter());
    presenter() = std::move(p);
    return old;
}

QString OpenFile(QWidget* parent, const QString& caption, const QString& start,
                 const QString& filter) {
    if (presenter()) return presenter()(Kind::OpenFile, caption, start, filter);
    return QFileDialog::getOpenFileName(parent, caption, start, filter);
}

QString SaveFile(QWidget* parent, const QString& caption, const QString& start,
                 const QString& filter) {
    if (presenter()) return presenter()(Kind::SaveFile, caption, start, filter);
    return QFileDialog::getSaveFileName(parent, caption, start, filter);
}

QString Folder(QWidget* parent, const QString& caption, const QString& start) {
    if (presenter()) return presenter()(Kind::Folder, caption, start, QString());
    return QFileDialog::getExistingDirectory(parent, caption, start);
}

}  // namespace FileDialog
