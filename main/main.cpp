// ClothesSell: the sales and stock system of a clothing shop.
#include <QApplication>
#include <QIcon>

#include "QtMsgBox.h"
#include "Startup.h"
#include "Wiring.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("ClothesSell"));
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("applications-office")));
    QtMsgBox::Install();
    RegisterAllWindows();
    if (!Startup::Main()) return 0;
    return app.exec();
}
