#include "desktop/qt/notice.h"

#include <QApplication>
#include <QMessageBox>

namespace desktop {

void notify(const char* words, const QString& about) {
    const QString message = QCoreApplication::translate("Notice", words).arg(about);
    auto* const box =
        new QMessageBox(QMessageBox::Warning, QApplication::applicationName(), message, QMessageBox::Ok);
    box->setObjectName(QStringLiteral("notice"));
    box->setTextFormat(Qt::PlainText);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowFlag(Qt::WindowStaysOnTopHint);
    box->setModal(false);
    box->show();
}

} // namespace desktop
