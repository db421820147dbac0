#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QTextEdit>

// The baseline of the start: a minimal Qt program with a menu and a text.
int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QMainWindow window;
    window.setWindowTitle(QStringLiteral("Bare"));
    window.menuBar()->addMenu(QStringLiteral("&File"))->addAction(QStringLiteral("&Quit"));
    window.setCentralWidget(new QTextEdit);
    window.show();
    return QApplication::exec();
}
