#pragma once
// Where the copy of the data file taken when the system closes goes, and
// whether it is taken at all (the one row of FileSave).
#include <QElapsedTimer>
#include <QMap>
#include <memory>

#include "Form.h"

namespace Ui {
class frmBackup;
}
class QFileSystemModel;

class frmBackup : public Form {
    Q_OBJECT
public:
    explicit frmBackup(QWidget* parent = nullptr);
    ~frmBackup() override;

    Ui::frmBackup* ui() { return ui_.get(); }

    // The drive (a mount point or the home folder) chosen in Drive.
    QString DrivePath() const;
    // The folder chosen in Dir; "" when none.
    QString DirPath() const;
    // Moves Dir to a folder; false (and Dir unchanged) when it does not exist.
    bool setDirPath(const QString& path);
    // Selects a drive by its path; false when the list has no such drive.
    bool setDrivePath(const QString& path);

protected:
    void showEvent(QShowEvent* e) override;

private:
    void LoadDrives();
    void Drive_Change();
    void Dir_Change();
    void cmdBrowse_Click();
    void cmdSave_Click();
    // The drive that holds a path: the longest drive path in front of it.
    QString DriveOf(const QString& path) const;
    void keepCurrentInSight();

    std::unique_ptr<Ui::frmBackup> ui_;
    QFileSystemModel* dirs_;
    // Each drive's current folder, as Dir last showed it.
    QMap<QString, QString> current_;
    QElapsedTimer moved_;   // since Dir last moved to a folder
    bool loading_ = false;  // the saved setting goes in past any error
};
