#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QTextEdit>

// The yardstick of the start: the least that a Qt program with a menu and a text does.
int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QMainWindow window;
    window.setWindowTitle(QStringLiteral("Bare"));
    window.menuBar()->addMenu(QStringLiteral("&File"))->addAction(QStringLiteral("&Quit"));
    window.setCentralWidget(new QTextEdit);
    window.show();
    return QApplication::exec();
}
