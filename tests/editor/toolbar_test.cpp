#include "editor/toolbar.h"
#include "fakes/editor_bench.h"

using testing::ElementsAre;

struct ToolbarTest : fakes::EditorBench {
    ToolbarTest() { toolbar.Form_Load(); }

    editor::Toolbar toolbar{form, document, desktop.systemPort, dialogs};
};

TEST_F(ToolbarTest, Buttons_ActOnTheSelection_AndReturnTheFocus) {
    for (std::size_t index = 4; index < form.Label2.size(); ++index) {
        text.setAllStyles(platform::Setting::Mixed); // a mixed style is first set for the whole selection
        form.Label2[index].Click();
    }
    EXPECT_THAT(text.commands,
                ElementsAre("bold on", "focus", "italic on", "focus", "underline on", "focus", "strike on",
                            "focus", "align 0", "focus", "align 2", "focus", "align 1", "focus", "size 13",
                            "size 12", "bullet on", "focus", "focus", "focus"));
    text.setAllStyles(platform::Setting::On);
    form.Label2[4].Click();
    EXPECT_EQ(text.SelBold(), platform::Setting::Off);
}

TEST_F(ToolbarTest, SizeStep_WithMixedSizesOrBelowTheMinimum_ChangesNothing) {
    text.size.reset();
    toolbar.Label2_Click(11);
    text.size = 1;
    toolbar.Label2_Click(12);
    EXPECT_TRUE(text.commands.empty());
}

TEST_F(ToolbarTest, FontBoxes_AcceptOnlyValidInput) {
    EXPECT_THAT(form.Combo1.items.get(), ElementsAre(u"Arial", u"Courier New"))
        << "the list starts with the second font";
    for (const base::Text typed :
         {u"0", u"abc", u"", u"1x", u".", u"1.2.3", u"9,5", u" 10.5 ", u"|", u"9.5", u"9,5"}) {
        if (typed == u"|")
            desktop.systemPort.decimalSign = u",";
        form.Combo2.text = typed;
        form.Combo2.Change();
    }
    for (const base::Text name : {u"Nowhere", u"Courier New"}) {
        form.Combo1.text = name;
        form.Combo1.Change();
    }
    EXPECT_THAT(text.commands, ElementsAre("size 10.5", "size 9.5", "font Courier New"));
}

TEST_F(ToolbarTest, ColourDialog_StartsWithBlack_AndCancelChangesNothing) {
    dialogs.colors = {std::nullopt, 0x00FF8000U};
    toolbar.Label2_Click(13);
    toolbar.Label2_Click(13);
    EXPECT_THAT(dialogs.colorStarts, ElementsAre(0U, 0U));
    EXPECT_THAT(text.commands, ElementsAre("color 16744448"));
}
