#include "player/bare_loop.h"

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QTextEdit>
#include <clocale>

// The memory baseline with an open file: a bare window, and libmpv playing the file to a null output.
int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C"); // libmpv refuses to start otherwise
    QMainWindow window;
    window.setWindowTitle(QStringLiteral("Bare"));
    window.menuBar()->addMenu(QStringLiteral("&File"))->addAction(QStringLiteral("&Quit"));
    window.setCentralWidget(new QTextEdit);
    window.show();
    BareLoop loop;
    loop.load(argv[1]);
    return QApplication::exec();
}
