#include "aids/typing_commands.h"

#include "lang/words.h"

namespace aids {

using lang::operator""_en;

TypingCommands::TypingCommands(TypingOptions& options)
    : mnuTyping_("mnuTyping", u"While I t&ype"_en),
      mnuExpand_("mnuExpandAbbreviations", u"&Expand abbreviations"_en),
      mnuComplete_("mnuOfferWords", u"&Offer long words of the document"_en),
      mnuQuotes_("mnuOwnQuotes", u"Write the &quotation marks of the language"_en),
      mnuDashes_("mnuOwnDashes", u"Write a &dash for two hyphens"_en), rows_{{mnuExpand_, options.expand},
                                                                             {mnuComplete_, options.complete},
                                                                             {mnuQuotes_, options.quotes},
                                                                             {mnuDashes_, options.dashes}} {
    for (Row& row : rows_) {
        mnuTyping_.items.push_back(&row.item);
        row.item.Click = [this, &row] {
            row.option = !row.option;
            show();
            Changed();
        };
    }
}

void TypingCommands::show() {
    for (Row& row : rows_)
        row.item.checked = row.option;
}

} // namespace aids
