// A window from which its arguments can be dragged: `drag_source TITLE ADDRESS...`, where each address is a
// path or a web address. It prints when a drag begins, the answers of the target, and how the drag ends. For
// the journeys, which need a drop from another program.
#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <QWidget>
#include <cstdio>

namespace {

class DragSource : public QWidget {
public:
    explicit DragSource(const QStringList& arguments) : addresses_(arguments.mid(2)) {
        setWindowTitle(arguments.value(1));
        setGeometry(600, 500, 200, 100);
    }

protected:
    void mouseMoveEvent(QMouseEvent* event) override {
        if (!(event->buttons() & Qt::LeftButton))
            return;
        auto* const dragged = new QMimeData;
        QList<QUrl> urls;
        for (const QString& address : addresses_)
            urls << QUrl::fromUserInput(address);
        dragged->setUrls(urls);
        auto* const drag = new QDrag(this);
        drag->setMimeData(dragged);
        connect(drag, &QDrag::actionChanged, [](Qt::DropAction action) { tell("answer", action); });
        tell("drag", Qt::CopyAction);
        tell("end", drag->exec(Qt::CopyAction));
    }

private:
    static void tell(const char* what, Qt::DropAction action) {
        std::printf("%s %d\n", what, static_cast<int>(action));
        std::fflush(stdout);
    }

    QStringList addresses_;
};

} // namespace

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    DragSource source(QApplication::arguments());
    source.show();
    return QApplication::exec();
}
