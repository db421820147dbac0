#include "editor/frm_find.h"

namespace editor {

namespace {

constexpr controls::Color ink = controls::rgb(0x1F, 0x2A, 0x44);

} // namespace

FrmFind::FrmFind(platform::EventLoop& loop)
    : Window("frmFind", {0, 0, clientWidth, clientHeight}), Timer1(loop) {
    caption = u"Trova e sostituisci";
    cmdFind.caption = u"&Find";
    cmdReplace.caption = u"&Replace...";
    cmdReplaceAll.caption = u"Replace &All";
    cmdCancel.caption = u"Cancel";
    Frame1.caption = u"Search Options";
    chkWholeWord.caption = u"Find Whole Word &Only";
    chkMatchCase.caption = u"Match Ca&se";
    lblFind.foreColor = lblReplace.foreColor = ink;
    lblFind.labels = &cboFind;
    lblReplace.labels = &cboReplace;
    cmdFind.isDefault = true;
    cmdCancel.isCancel = true;
}

} // namespace editor
