#pragma once
// File and folder choosers, through one place so that tests can answer them.
#include <QString>
#include <functional>

class QWidget;

namespace FileDialog {

enum class Kind { OpenFile, SaveFile, Folder };
using Presenter = std::function<QString(Kind, const QString& caption, const QString& start,
                                        const QString& filter)>;

// Tests install a presenter that answers; returns the former one.
Presenter SetPresenter(Presenter p);

QString OpenFile(QWidget* parent, const QString& caption, const QString& start,
                 const QString& filter);
QString SaveFile(QWidget* parent, const QString& caption, const QString& start,
                 const QString& filter);
QString Folder(QWidget* parent, const QString& caption, const QString& start);

}  // namespace FileDialog
