// ClothesSell: the sales and stock system of a clothing shop.
#include <QApplication>
#include <QIcon>

#include "QtMsgBox.h"
#include "Session.h"
#include "Startup.h"
#include "Wiring.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("ClothesSell"));
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("applications-office")));
    QtMsgBox::Install();
    RegisterAllWindows();
    int rc = 0;
    if (Startup::Main()) rc = app.exec();
    // The connection goes before the application object does.
    Session::ReleaseDb();
    return rc;
}
