// The text control's files, printed pages and exports.
#include "base/failure.h"
#include "base/files.h"
#include "desktop/qt/notice.h"
#include "desktop/qt/print_device.h"
#include "desktop/text/export_document.h"
#include "desktop/text/load_document.h"
#include "desktop/text/pages.h"
#include "desktop/text/rich_text_edit.h"
#include "desktop/text/rtf_bridge.h"
#include "rtf/read/reader.h"
#include "rtf/write/writer.h"

#include <utility>

namespace desktop {

void RichTextEdit::LoadFile(base::TextView path) {
    replaceWhole(loadDocument(path, page_, font()));
}

void RichTextEdit::SaveFile(base::TextView path) {
    base::replaceFile(path, source());
}

std::string RichTextEdit::source() const {
    rtf::Document whole = rtfOf(*document_);
    whole.moments = Beside(0, textLength());
    return rtf::write(whole);
}

void RichTextEdit::setSource(std::string_view source) {
    replaceWhole(documentOfRtf(rtf::read(source), font()));
}

void RichTextEdit::SelPrint(platform::PrintDevice& hDC) {
    if (document_->isEmpty())
        return;
    const TextRange range = selectedRange();
    const bool all = range.begin == range.end;
    print(all ? rtfOf(*document_) : rtfOf(*document_, range), hDC);
}

void RichTextEdit::printSource(std::string_view source, platform::PrintDevice& device) {
    print(rtf::read(source), device);
}

void RichTextEdit::print(rtf::Document source, platform::PrintDevice& hDC) const {
    const auto pages = documentOfRtf(std::move(source), font());
    auto& device = static_cast<QtPrintDevice&>(hDC);
    printPages(*pages, device.paper());
    try {
        device.finish();
    } catch (const base::Failure& failure) {
        // The callers ignore this failure, and unlike missing paper a missing file would stay unnoticed.
        notify("This file could not be written: %1", QString::fromUtf8(failure.what()));
        throw;
    }
}

std::string RichTextEdit::exported(std::string_view source, platform::ExportForm form) {
    return exportDocument(rtf::read(source), form, font());
}

} // namespace desktop
