#include "editor/toolbar.h"
#include "fakes/editor_bench.h"

using testing::ElementsAre;

class ToolbarTest : public fakes::EditorBench {
protected:
    ToolbarTest() { toolbar.Form_Load(); }
    void size(const base::Text& typed) {
        form.Combo2.text = typed;
        form.Combo2.Change();
    }

    editor::Toolbar toolbar{form, document, desktop.systemPort, dialogs};
};

TEST_F(ToolbarTest, Buttons_ActOnTheSelection_AndGiveTheKeyboardBack) {
    const std::pair<int, std::vector<std::string>> rows[] = {{4, {"bold on", "focus"}},
                                                             {5, {"italic on", "focus"}},
                                                             {6, {"underline on", "focus"}},
                                                             {7, {"strike on", "focus"}},
                                                             {8, {"align 0", "focus"}},
                                                             {9, {"align 2", "focus"}},
                                                             {10, {"align 1", "focus"}},
                                                             {11, {"size 13"}},
                                                             {12, {"size 12"}},
                                                             {14, {"bullet on", "focus"}},
                                                             {13, {}},
                                                             {15, {"focus"}},
                                                             {16, {"focus"}},
                                                             {17, {}},
                                                             {-1, {}}};
    for (const auto& [index, commands] : rows) {
        text.commands.clear();
        text.style = platform::Setting::Mixed; // is set as a whole first
        toolbar.Label2_Click(index);
        EXPECT_EQ(text.commands, commands) << index;
    }
    text.commands.clear();
    text.style = platform::Setting::On;
    form.Label2[4].Click();
    EXPECT_THAT(text.commands, ElementsAre("bold off", "focus"));
}

TEST_F(ToolbarTest, SizeStep_WithoutASizeOrBelowTheLeast_ChangesNothing) {
    text.size.reset();
    toolbar.Label2_Click(11);
    text.size = 1;
    toolbar.Label2_Click(12);
    EXPECT_TRUE(text.commands.empty());
    EXPECT_EQ(form.Combo2.text.get(), u"12");
}

TEST_F(ToolbarTest, FontBoxes_TakeWhatTheirRulesTake) {
    EXPECT_THAT(form.Combo1.items.get(), ElementsAre(u"Arial", u"Courier New"))
        << "the list begins with the second font";
    EXPECT_EQ(form.Combo2.items->size(), 21U);
    for (const base::Text typed : {u"0", u"abc", u"", u"1x", u"13"})
        size(typed);
    EXPECT_THAT(text.commands, ElementsAre("size 13"));
    for (const base::Text name : {u"Nowhere", u"Courier New"}) {
        form.Combo1.text = name;
        form.Combo1.Change();
    }
    EXPECT_THAT(text.commands, ElementsAre("size 13", "font Courier New"));
}

TEST_F(ToolbarTest, Colour_BeginsOnBlackEachTime_AndCancelLeavesIt) {
    dialogs.colors = {std::nullopt, 0x00FF8000U};
    toolbar.Label2_Click(13);
    toolbar.Label2_Click(13);
    EXPECT_THAT(dialogs.colorStarts, ElementsAre(0U, 0U));
    EXPECT_THAT(text.commands, ElementsAre("color 16744448"));
}

TEST_F(ToolbarTest, Mark_FollowsTheMouse_UntilTheBareWindow) {
    form.Label2[15].MouseMove({});
    EXPECT_TRUE(form.Shape1.visible);
    EXPECT_EQ(form.Shape1.left, 1980);
    form.Label2[0].MouseMove({});
    EXPECT_EQ(form.Shape1.left, 150);
    EXPECT_EQ(form.Shape1.width, 435);
    form.Label1.MouseMove({});
    EXPECT_FALSE(form.Shape1.visible);
}
