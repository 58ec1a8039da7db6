#pragma once
// The main window: menu and toolbar gated by the user's rights, the wipe of
// business data, and the backup taken when the system closes.
#include <QMainWindow>
#include <memory>

namespace Ui {
class frmMain;
}
class QAction;
class QToolBar;

class frmMain : public QMainWindow {
    Q_OBJECT
public:
    explicit frmMain(QWidget* parent = nullptr);
    ~frmMain() override;

    // The fixed first part of the title.
    static QString FixedTitle();

    // Enables each gated command by the current user's rights.
    void LoadPopdem();

    // A menu item by its name, a toolbar button by its key.
    QAction* MenuItem(const QString& name) const;
    QAction* ToolButton(const QString& key) const;
    QToolBar* Toolbar() const;

    // Runs a command as its menu item does.
    void RunCommand(const QString& key);

    // The backup target read from FileSave, and whether to back up. Returns
    // false when the setting could not be read (then nothing is backed up).
    static bool ReadBackupSetting(QString& target, bool& isSave);

    // The process-wide main window (the one made at login), or nullptr.
    static frmMain* Instance();

protected:
    void closeEvent(QCloseEvent* e) override;
    void resizeEvent(QResizeEvent* e) override;

private:
    void buildToolbar();
    void ReStart();
    void Calculate();
    void Note();

    std::unique_ptr<Ui::frmMain> ui_;
};
