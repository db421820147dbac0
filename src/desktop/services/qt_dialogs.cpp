#include "desktop/services/qt_dialogs.h"

#include "base/carry_on.h"
#include "base/files.h"
#include "desktop/qt/conversions.h"

#include <QApplication>
#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QHeaderView>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QProgressDialog>
#include <QTreeView>
#include <cerrno>
#include <utility>

namespace desktop {

namespace {

using platform::Answer;
using platform::BoxStyle;

constexpr std::string_view player = "Form1";
constexpr int leastTextWidth = 200;    // pixels; with less, the title is cut off in the title bar
constexpr qsizetype longestPath = 255; // units; the program cannot take a longer one

QMessageBox::StandardButtons buttons(BoxStyle style) {
    switch (style) {
    case BoxStyle::YesNoExclamation:
    case BoxStyle::YesNoInformation:
    case BoxStyle::YesNoExclamationDefaultNo:
        return QMessageBox::Yes | QMessageBox::No;
    case BoxStyle::YesNoCancelExclamation:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case BoxStyle::Plain:
    case BoxStyle::Critical:
    case BoxStyle::Information:
    case BoxStyle::Exclamation:
        break;
    }
    return QMessageBox::Ok;
}

QMessageBox::Icon icon(BoxStyle style) {
    switch (style) {
    case BoxStyle::Plain:
        return QMessageBox::NoIcon;
    case BoxStyle::Critical:
        return QMessageBox::Critical;
    case BoxStyle::Information:
    case BoxStyle::YesNoInformation:
        return QMessageBox::Information;
    case BoxStyle::Exclamation:
    case BoxStyle::YesNoExclamation:
    case BoxStyle::YesNoExclamationDefaultNo:
    case BoxStyle::YesNoCancelExclamation:
        break;
    }
    return QMessageBox::Warning;
}

Answer answer(int button) {
    switch (button) {
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    case QMessageBox::Cancel:
        return Answer::Cancel;
    default:
        return Answer::OK;
    }
}

// The dialog's filters, "name (*.a *.b)", made from pairs of a name and its patterns.
QStringList nameFilters(const base::Text& filter) {
    const QStringList fields = qstring(filter).split(QChar(u'\0'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < fields.size(); i += 2) {
        QString patterns = fields[i + 1];
        if (patterns.isEmpty())
            continue;
        patterns.replace(u';', u' ');
        // On this platform, "*.*" would hide names without a dot.
        if (patterns == QLatin1String("*.*"))
            patterns = QStringLiteral("*");
        filters << QStringLiteral("%1 (%2)").arg(fields[i], patterns);
    }
    return filters;
}

// The media types that people record and receive and that the engine plays; the desktop has no such list. The
// language files may translate the name.
QString allMedia() {
    static const QString kinds = QStringLiteral(
        "3ga *.3gp *.aac *.ac3 *.aif *.aifc *.aiff *.amr *.ape *.asf *.au *.avi *.caf *.dss *.dts *.dv *.f4v "
        "*.flac *.flv *.m2ts *.m4a *.m4b *.m4v *.mka *.mkv *.mov *.mp2 *.mp3 *.mp4 *.mpa *.mpeg *.mpg *.mts "
        "*.mxf *.oga *.ogg *.ogv *.opus *.ra *.rm *.spx *.ts *.tta *.vob *.wav *.webm *.wma *.wmv *.wv");
    return QStringLiteral("%1 (*.%2)").arg(QCoreApplication::translate("FileDlg", "All media"), kinds);
}

// Qt's default widths fit English words only.
void fitColumns(const QFileDialog& dialog) {
    auto* const details = dialog.findChild<QTreeView*>(QStringLiteral("treeView"));
    if (!details)
        return;
    QHeaderView& header = *details->header();
    header.setResizeContentsPrecision(0); // measure visible rows only: a folder may hold thousands
    for (int column = 1; column < header.count(); ++column)
        header.setSectionResizeMode(column, QHeaderView::ResizeToContents);
    header.setSectionResizeMode(0, QHeaderView::Stretch);
}

// Appends the extension to names without a dot, except when opening a file that exists under the name as
// typed.
void completeNames(QFileDialog& dialog, const QString& extension) {
    dialog.setDefaultSuffix(extension);
    const auto* const name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    if (!name || dialog.acceptMode() == QFileDialog::AcceptSave)
        return;
    QObject::connect(name, &QLineEdit::textChanged, &dialog, [&dialog, extension](const QString& typed) {
        const bool there = QFileInfo(dialog.directory(), typed).isFile();
        dialog.setDefaultSuffix(there ? QString() : extension);
    });
}

QString boxText(base::TextView text) {
    QString lines = qstring(text);
    return lines.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(u'\r', u'\n');
}

Answer showBox(QWidget* owner, base::TextView text, base::TextView title, BoxStyle style) {
    QMessageBox box(owner);
    box.setObjectName(QStringLiteral("messageBox"));
    // A box without a parent window cannot inherit its icon.
    if (!box.parentWidget())
        box.setWindowIcon(QIcon(QApplication::applicationDirPath() + QStringLiteral("/Files/quillmere.ico")));
    box.setIcon(icon(style));
    box.setWindowTitle(title.empty() ? QApplication::applicationName() : qstring(title));
    box.setTextFormat(Qt::PlainText);
    box.setText(boxText(text));
    box.setStandardButtons(buttons(style));
    if (style == BoxStyle::YesNoExclamationDefaultNo)
        box.setDefaultButton(QMessageBox::No);
    if (auto* const grid = qobject_cast<QGridLayout*>(box.layout()))
        grid->setColumnMinimumWidth(grid->columnCount() - 1, leastTextWidth);
    // The player stays on top of all windows; a box behind it would look like a hang.
    box.setWindowFlag(Qt::WindowStaysOnTopHint);
    return answer(box.exec());
}

// Qt's dialog. While the file to save to cannot be written, it shows the system's message and stays open.
class FileDialog final : public QFileDialog {
public:
    FileDialog(const platform::FileDialogRequest& request, QWidget* owner, const QString& folder)
        : QFileDialog(owner, qstring(request.title), folder),
          addedAlways_(request.extensionAlways ? u'.' + qstring(request.defaultExtension) : QString()) {}

    // The chosen path with its extension.
    QString chosen() const {
        const QString path = selectedFiles().value(0);
        return path.endsWith(addedAlways_, Qt::CaseInsensitive) ? path : path + addedAlways_;
    }

protected:
    void accept() override {
        // A folder is not chosen but opened.
        if (acceptMode() == AcceptSave && !QFileInfo(selectedFiles().value(0)).isDir() && !isWritable())
            return;
        QFileDialog::accept();
    }

private:
    bool isWritable() {
        return base::carryOn(
            [this] {
                if (chosen().size() > longestPath)
                    throw base::Failure(qt_error_string(ENAMETOOLONG).toStdString());
                base::checkWritable(text(chosen()));
            },
            [this](const char* reason) {
                // The path, which follows, is shown in the dialog.
                const std::string_view words = reason;
                showBox(this, base::fromUtf8(words.substr(0, words.find(": /"))), {}, BoxStyle::Exclamation);
            });
    }

    const QString addedAlways_;
};

class ProgressWindow final : public platform::Progress {
public:
    ProgressWindow(const QString& text, const QString& title, std::function<void()> cancelled, QWidget* owner)
        : window_(new QProgressDialog(owner)) {
        window_->setObjectName(QStringLiteral("progress"));
        window_->setWindowTitle(title);
        auto* const label = new QLabel(text);
        label->setTextFormat(Qt::PlainText);
        window_->setLabel(label);
        window_->setRange(0, steps);
        window_->setAutoReset(false);
        window_->setWindowFlag(Qt::WindowStaysOnTopHint);
        // Does not interrupt typing.
        window_->setAttribute(Qt::WA_ShowWithoutActivating);
        QObject::connect(window_, &QProgressDialog::canceled, window_, std::move(cancelled));
        window_->show();
    }
    // Deferred deletion, because the window's own button may be the caller. Its owner window may already have
    // deleted it.
    ~ProgressWindow() override {
        if (!window_)
            return;
        window_->disconnect();
        window_->hide();
        window_->deleteLater();
    }

    void setShare(double share) override {
        if (window_)
            window_->setValue(static_cast<int>(share * steps));
    }

private:
    static constexpr int steps = 1000;

    const QPointer<QProgressDialog> window_;
};

} // namespace

Answer QtDialogs::messageBox(base::TextView text, base::TextView title, BoxStyle style) {
    return showBox(QApplication::activeWindow(), text, title, style);
}

std::unique_ptr<platform::Progress> QtDialogs::showProgress(base::TextView text, base::TextView title,
                                                            std::function<void()> cancelled) {
    return std::make_unique<ProgressWindow>(boxText(text), qstring(title), std::move(cancelled),
                                            window(player));
}

std::optional<std::uint32_t> QtDialogs::ShowColor(std::string_view owner, std::uint32_t start) {
    // Custom colours are static in Qt: reset them, because each dialog starts without any.
    for (int i = 0; i < QColorDialog::customCount(); ++i)
        QColorDialog::setCustomColor(i, Qt::white);
    QColorDialog dialog(QColor(QRgb(start)), window(owner));
    dialog.setObjectName(QStringLiteral("ShowColor"));
    dialog.setWindowFlag(Qt::WindowStaysOnTopHint);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.currentColor().rgb() & RGB_MASK;
}

base::Text QtDialogs::FileDlg(const platform::FileDialogRequest& request) {
    // If the folder no longer exists, Qt would choose an arbitrary one.
    const QString initial = qstring(request.initialFolder);
    const bool there = !initial.isEmpty() && QFileInfo(initial).isDir();
    FileDialog dialog(request, window(request.owner), there ? initial : QDir::currentPath());
    dialog.setObjectName(QStringLiteral("FileDlg"));
    dialog.setAcceptMode(request.open ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    dialog.setFileMode(request.open ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    // Shows only the names of the filters: dozens of patterns would be cut off. This must be set before the
    // filters.
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(nameFilters(request.filter) +
                          (request.allMedia ? QStringList(allMedia()) : QStringList()));
    dialog.setWindowFlag(Qt::WindowStaysOnTopHint);
    completeNames(dialog, qstring(request.defaultExtension));
    if (request.extensionOfFilter)
        QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog](const QString& filter) {
            dialog.setDefaultSuffix(filter.section(QStringLiteral("*."), 1, 1).section(u')', 0, 0));
        });
    fitColumns(dialog);
    if (!request.fileName.empty())
        dialog.selectFile(qstring(request.fileName));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    const QString chosen = dialog.chosen();
    if (chosen.size() > longestPath)
        return {};
    QDir::setCurrent(QFileInfo(chosen).absolutePath());
    return text(chosen);
}

QWidget* QtDialogs::window(std::string_view name) {
    const QString wanted = qstring(name);
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->objectName() == wanted)
            return widget;
    }
    return nullptr;
}

} // namespace desktop
