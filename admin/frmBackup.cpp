#include "frmBackup.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QStorageInfo>
#include <QTimer>

#include "FileDialog.h"
#include "MsgBox.h"
#include "On.h"
#include "RuntimeError.h"
#include "Session.h"
#include "ui_frmBackup.h"

frmBackup::frmBackup(QWidget* parent)
    : Form(parent), ui_(std::make_unique<Ui::frmBackup>()), dirs_(new QFileSystemModel(this)) {
    ui_->setupUi(this);
    ui_->comFile->setCurrentIndex(0);

    // Dir lists folders only, from the root of the file system down.
    dirs_->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot | QDir::Drives);
    dirs_->setRootPath(QStringLiteral("/"));
    ui_->Dir->setModel(dirs_);
    for (int c = 1; c < dirs_->columnCount(); ++c) ui_->Dir->hideColumn(c);

    LoadDrives();
    // At first the lists show the program's folder, as a drive and folder list would.
    const QString start = QCoreApplication::applicationDirPath();
    {
        const QSignalBlocker b(ui_->Drive);
        setDrivePath(DriveOf(start));
    }

    On(ui_->Drive, &QComboBox::currentIndexChanged, this, [this] { Drive_Change(); });
    On(ui_->Dir->selectionModel(), &QItemSelectionModel::currentChanged, this,
       [this] { Dir_Change(); });
    // Folders are read and sorted in the background: for a moment after the
    // list moves to a folder, keep that folder in sight while the rows settle.
    auto follow = [this] {
        if (moved_.isValid() && moved_.elapsed() < 1500)
            QTimer::singleShot(0, this, [this] { keepCurrentInSight(); });
    };
    connect(dirs_, &QAbstractItemModel::rowsInserted, this, follow);
    connect(dirs_, &QAbstractItemModel::layoutChanged, this, follow);
    On(ui_->cmdBrowse, &QPushButton::clicked, this, [this] { cmdBrowse_Click(); });
    On(ui_->cmdSave, &QPushButton::clicked, this, [this] { cmdSave_Click(); });
    {
        // The path box keeps its design text until a folder is picked.
        const QString designPath = ui_->txtFilePath->text();
        setDirPath(start);
        ui_->txtFilePath->setText(designPath);
    }

    // The saved setting; a folder or drive that is gone leaves its list as it was.
    bool isErr = false;
    Recordset rs = Session::Dbopt().Excute(QStringLiteral("Select * from FileSave"), isErr);
    if (isErr || rs.Eof()) return;
    // A null column leaves its control as designed.
    loading_ = true;
    if (!rs.IsNull("dir")) setDirPath(rs.Text("dir"));
    if (!rs.IsNull("Drive")) setDrivePath(rs.Text("Drive"));
    loading_ = false;
    if (!rs.IsNull("FileName")) ui_->txtFileName->setText(rs.Text("FileName"));
    if (!rs.IsNull("dirpath")) ui_->txtFilePath->setText(rs.Text("dirpath"));
    ui_->IsSave->setChecked(!rs.IsNull("isSave") && rs.Text("isSave") != QLatin1String("0"));
}

frmBackup::~frmBackup() = default;

void frmBackup::showEvent(QShowEvent* e) {
    Form::showEvent(e);
    // The chosen folder in sight once the list has its size.
    moved_.start();
    QTimer::singleShot(0, this, [this] { keepCurrentInSight(); });
}

void frmBackup::LoadDrives() {
    // The root, the mounted media and data volumes, and the home folder.
    QStringList drives{QStringLiteral("/")};
    for (const QStorageInfo& v : QStorageInfo::mountedVolumes()) {
        if (!v.isValid() || !v.isReady()) continue;
        const QString root = v.rootPath();
        for (const char* place : {"/media/", "/mnt/", "/run/media/", "/home"})
            if (root.startsWith(QLatin1String(place))) drives << root;
    }
    drives << QDir::homePath();
    drives.removeDuplicates();
    std::sort(drives.begin(), drives.end());
    ui_->Drive->clear();
    ui_->Drive->addItems(drives);
}

QString frmBackup::DriveOf(const QString& path) const {
    QString best;
    const QString p = QDir::cleanPath(path);
    for (int i = 0; i < ui_->Drive->count(); ++i) {
        const QString d = ui_->Drive->itemText(i);
        const bool inside = p == d || p.startsWith(d.endsWith('/') ? d : d + '/');
        if (inside && d.size() > best.size()) best = d;
    }
    return best;
}

QString frmBackup::DrivePath() const {
    return ui_->Drive->currentText();
}

QString frmBackup::DirPath() const {
    const QModelIndex i = ui_->Dir->currentIndex();
    return i.isValid() ? dirs_->filePath(i) : QString();
}

bool frmBackup::setDirPath(const QString& path) {
    if (path.isEmpty() || !QFileInfo(path).isDir()) return false;
    const QModelIndex i = dirs_->index(QDir::cleanPath(path));
    if (!i.isValid()) return false;
    for (QModelIndex p = i.parent(); p.isValid(); p = p.parent()) ui_->Dir->expand(p);
    ui_->Dir->setCurrentIndex(i);
    ui_->Dir->expand(i);
    ui_->Dir->scrollTo(i);
    moved_.start();
    return true;
}

void frmBackup::keepCurrentInSight() {
    if (ui_->Dir->currentIndex().isValid())
        ui_->Dir->scrollTo(ui_->Dir->currentIndex(), QAbstractItemView::PositionAtCenter);
}

bool frmBackup::setDrivePath(const QString& path) {
    const int i = ui_->Drive->findText(path);
    if (i < 0) return false;
    ui_->Drive->setCurrentIndex(i);
    return true;
}

void frmBackup::Drive_Change() {
    // Dir moves to the drive's current folder: where it last was on that
    // drive, else the drive's top.
    const QString drive = DrivePath();
    if (!setDirPath(current_.value(drive, drive)) && !loading_)
        throw RuntimeError(QStringLiteral("运行时错误 '68':\n\n设备不可用"));
}

void frmBackup::Dir_Change() {
    const QString path = DirPath();
    if (path.isEmpty()) return;
    current_[DriveOf(path)] = path;
    ui_->txtFilePath->setText(path);
}

void frmBackup::cmdBrowse_Click() {
    const QString start = ui_->txtFilePath->text().isEmpty() ? DirPath() : ui_->txtFilePath->text();
    const QString path = FileDialog::Folder(this, QStringLiteral("设置保存路径："), start);
    if (path.isEmpty()) return;
    const QString drive = DriveOf(path);
    if (!drive.isEmpty() && drive != DrivePath()) {
        current_[drive] = QDir::cleanPath(path);
        setDrivePath(drive);
    }
    if (!setDirPath(path)) ui_->txtFilePath->setText(path);
}

void frmBackup::cmdSave_Click() {
    // The texts go in as they stand.
    const QString sql = "Update FileSave set dirpath='" + ui_->txtFilePath->text() + "',Drive='" +
                        DrivePath() + "',Dir='" + DirPath() + "',FileName='" +
                        ui_->txtFileName->text() +
                        "',IsSave=" + (ui_->IsSave->isChecked() ? "1" : "0");
    bool isErr = false;
    Session::Dbopt().Excute(sql, isErr);
    if (isErr) return;
    MsgBox::Info(QStringLiteral("保存成功！"));
    accept();
}
