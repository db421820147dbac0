#include "player/bare_loop.h"

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QTextEdit>
#include <clocale>

// The yardstick of the memory with a file open: a bare window, and libmpv playing the file to nowhere.
int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C"); // libmpv starts in no other
    QMainWindow window;
    window.setWindowTitle(QStringLiteral("Bare"));
    window.menuBar()->addMenu(QStringLiteral("&File"))->addAction(QStringLiteral("&Quit"));
    window.setCentralWidget(new QTextEdit);
    window.show();
    BareLoop loop;
    loop.load(argv[1]);
    return QApplication::exec();
}
