#include "desktop/services/guide_view.h"

#include <QApplication>
#include <QFile>
#include <QIcon>
#include <QLabel>
#include <QPointer>
#include <QRegularExpression>
#include <QShortcut>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace desktop {

namespace {

constexpr QSize windowSize(720, 640); // pixels
constexpr int margin = 10;            // pixels
constexpr double sheetMargin = 16;    // pixels inside the page

// Qt's text view knows a part of HTML. The drawings would be missing, and the styles, meant for browsers,
// would be applied in part.
QString readable(QString page) {
    static const QRegularExpression unknown(QStringLiteral("<(svg|style)\\b.*?</\\1>|<img\\b[^>]*>"),
                                            QRegularExpression::DotMatchesEverythingOption);
    return page.remove(unknown);
}

QWidget* createWindow() {
    auto* const window = new QWidget;
    window->setObjectName(QStringLiteral("guide"));
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setWindowFlag(Qt::WindowStaysOnTopHint);
    window->resize(windowSize);
    auto* const layout = new QVBoxLayout(window);
    layout->setContentsMargins(margin, margin, margin, margin);
    auto* const reason = new QLabel(window);
    reason->setText(QCoreApplication::translate(
        "Guide", "No program that shows web pages was found; this is the guide."));
    reason->setWordWrap(true);
    layout->addWidget(reason);
    auto* const page = new QTextBrowser(window);
    page->document()->setDocumentMargin(sheetMargin);
    page->setOpenLinks(true);
    layout->addWidget(page);
    QObject::connect(new QShortcut(Qt::Key_Escape, window), &QShortcut::activated, window, &QWidget::close);
    return window;
}

} // namespace

void showGuide(const QString& path) {
    static QPointer<QWidget> window;
    if (!window)
        window = createWindow();
    auto* const page = window->findChild<QTextBrowser*>();
    QFile file(path);
    if (file.open(QIODevice::ReadOnly))
        page->setHtml(readable(QString::fromUtf8(file.readAll())));
    window->setWindowTitle(page->documentTitle());
    page->setAccessibleName(page->documentTitle());
    window->setWindowIcon(QIcon(QApplication::applicationDirPath() + QStringLiteral("/Files/quillmere.ico")));
    window->show();
    window->raise();
    window->activateWindow();
    page->setFocus();
}

} // namespace desktop
