#include "editor/toolbar.h"

#include "base/carry_on.h"
#include "base/numbers.h"

namespace editor {

namespace {

constexpr controls::Color black = 0;

std::vector<base::Text> fontSizes() {
    std::vector<base::Text> sizes;
    for (int points = 5; points <= 15; ++points)
        sizes.push_back(base::numberText(points));
    for (int points = 16; points <= 28; points += 2)
        sizes.push_back(base::numberText(points));
    for (const int points : {36, 48, 72})
        sizes.push_back(base::numberText(points));
    return sizes;
}

// The number in this text (digits with at most one decimal separator, blanks around it); 0 if it is not one.
double number(const base::Text& text, base::TextView decimalSign) {
    base::Text digits = base::trimmed(text);
    const auto sign = digits.find(decimalSign);
    const auto isWhole = [](base::TextView part) {
        return part.find_first_not_of(u"0123456789") == base::TextView::npos;
    };
    if (sign == base::Text::npos)
        return isWhole(digits) ? base::val(digits) : 0;
    digits.replace(sign, decimalSign.size(), u".");
    return isWhole(digits.substr(0, sign)) && isWhole(digits.substr(sign + 1)) ? base::val(digits) : 0;
}

} // namespace

Toolbar::Toolbar(Form2& form, Document& document, platform::System& system, platform::Dialogs& dialogs)
    : form_(form), document_(document), system_(system), dialogs_(dialogs) {
    for (int i = 0; i < Form2::buttonCount; ++i) {
        auto& button = form_.Label2[static_cast<std::size_t>(i)];
        button.Click = [this, i] { Label2_Click(i); };
        button.MouseMove = [this, i](const auto&) { Label2_MouseMove(i); };
    }
    form_.mnuNuovo.Click = [this] { Label2_Click(newButton); };
    form_.mnuApri.Click = [this] { Label2_Click(openButton); };
    form_.mnuSalva.Click = [this] { Label2_Click(saveButton); };
    form_.mnuStampa.Click = [this] { Label2_Click(printButton); };
    form_.MouseMove = form_.Label1.MouseMove = [this](const auto&) { NascondiEvidenza(); };
    form_.Combo1.Change = [this] { Combo1_Change(); };
    form_.Combo2.Change = [this] { Combo2_Change(); };
}

void Toolbar::Form_Load() {
    std::vector<base::Text> fonts = system_.screenFonts();
    // The list starts with the second font. Settled behaviour.
    if (!fonts.empty())
        fonts.erase(fonts.begin());
    form_.Combo1.items = std::move(fonts);
    form_.Combo1.text = u"Arial";
    form_.Combo2.items = fontSizes();
    form_.Combo2.text = u"12";
    for (std::size_t i = 0; i < form_.Label3.size(); ++i) {
        form_.Label3[i].left = form_.Label2[i + boldButton].left.get();
        form_.Label3[i].top = i == 0 ? 90.0 : 80.0;
    }
    CambiaLingua2();
}

void Toolbar::CambiaLingua2() {
    const int entries[] = {90, 115, 91, 92};
    for (std::size_t i = 0; i < form_.Label3.size(); ++i)
        form_.Label3[i].caption = form_.Lingua(entries[i]);
}

void Toolbar::Label2_Click(int index) {
    if (index < 0 || index >= Form2::buttonCount)
        return;
    press(index);
    form_.Label2[static_cast<std::size_t>(index)].accessible.refresh();
    Salva();
}

void Toolbar::press(int index) {
    platform::RichText& text = form_.RTB;
    base::carryOn([&] {
        switch (index) {
        case newButton:
            return document_.newDocument();
        case openButton:
            return document_.openDocument();
        case saveButton:
            return document_.save();
        case printButton:
            return form_.Print();
        case boldButton:
            return toggle(text.SelBold(), &platform::RichText::setSelBold);
        case italicButton:
            return toggle(text.SelItalic(), &platform::RichText::setSelItalic);
        case underlineButton:
            return toggle(text.SelUnderline(), &platform::RichText::setSelUnderline);
        case strikeButton:
            return toggle(text.SelStrikeThru(), &platform::RichText::setSelStrikeThru);
        case bulletButton:
            return toggle(text.SelBullet(), &platform::RichText::setSelBullet);
        case leftButton:
            return align(platform::ParagraphAlignment::Left);
        case centreButton:
            return align(platform::ParagraphAlignment::Centre);
        case rightButton:
            return align(platform::ParagraphAlignment::Right);
        case largerButton:
            return stepSize(+1);
        case smallerButton:
            return stepSize(-1);
        case colorButton:
            return chooseColor();
        case undoButton:
            return form_.mnuAnnulla.Click();
        case redoButton:
            return form_.mnuRipeti.Click();
        default:
            return;
        }
    });
}

// A mixed selection is switched on as a whole.
void Toolbar::toggle(platform::Setting present, void (platform::RichText::*set)(bool)) {
    base::carryOn([&] { (form_.RTB.*set)(present != platform::Setting::On); });
    form_.RTB.SetFocus();
}

void Toolbar::align(platform::ParagraphAlignment alignment) {
    base::carryOn([&] { form_.RTB.setSelAlignment(alignment); });
    form_.RTB.SetFocus();
}

void Toolbar::stepSize(double points) {
    // A mixed selection has no single size to change.
    if (const auto size = form_.RTB.SelFontSize())
        form_.RTB.setSelFontSize(*size + points);
}

void Toolbar::chooseColor() {
    // The dialog always starts with black, whatever the selection's colour is.
    if (const auto color = dialogs_.ShowColor(form_.name, black))
        form_.RTB.setSelColor(*color);
}

void Toolbar::Label2_MouseMove(int index) {
    const controls::Control& button = form_.Label2[static_cast<std::size_t>(index)];
    form_.Shape1.width = button.width.get();
    form_.Shape1.height = button.height.get();
    form_.Shape1.top = button.top.get();
    form_.Shape1.left = button.left.get();
    form_.Shape1.visible = true;
}

void Toolbar::NascondiEvidenza() {
    form_.Shape1.visible = false;
}

void Toolbar::Combo1_Change() {
    if (form_.Combo1.listIndex() >= 0)
        base::carryOn([&] { form_.RTB.setSelFontName(form_.Combo1.text.get()); });
}

void Toolbar::Combo2_Change() {
    const base::Text sign = system_.LeggiLocale(platform::localeDecimalSign);
    const double size = number(form_.Combo2.text, sign.empty() ? u"." : base::TextView(sign));
    if (size != 0)
        base::carryOn([&] { form_.RTB.setSelFontSize(size); });
}

} // namespace editor
