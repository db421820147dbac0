#include "fakes/workbench.h"

#include <map>

// Walks the mouse over the skin and looks at what each handler lit, reset and left alone.
class SkinTest : public testing::Test, protected fakes::Workbench {
protected:
    struct Button {
        controls::PictureButton& control;
        int& flag;
        base::Text rest;
        base::Text hover;
    };

    bool shows(const controls::Picture& picture, base::TextView file) {
        return picture.picture.get() == form().folder.files(file);
    }

    std::map<std::string, Button> buttons = {
        {"apri", {form().Image3, form().HoverApri, u"Apri.bmp", u"Apri2.bmp"}},
        {"play", {form().cmdPlay, form().FlagHoverSkin, u"play.jpg", u"play2.jpg"}},
        {"indietro", {form().cmdIndietro, form().HoverIndietro, u"bac.jpg", u"bac2.jpg"}},
        {"avanz", {form().cmdAvanz, form().HoverAvanz, u"for.jpg", u"for2.jpg"}},
        {"stop", {form().cmdStop, form().HoverStop, u"stop.jpg", u"stop2.jpg"}},
        {"rec", {form().cmdRec, form().HoverRec, u"rec.jpg", u"rec2.jpg"}},
    };
};

TEST_F(SkinTest, EachHandler_LightsItsOwnAndResetsTheOthersOfItsRow) {
    struct Row {
        std::string over;
        controls::Control& handler;
        std::string leaves; // what it does not reset, besides itself
        bool returnsDetta;
        bool clearsHoverPlay;
    };
    const Row rows[] = {{"avanz", form().cmdAvanz, "", false, false},
                        {"indietro", form().cmdIndietro, "", false, false},
                        {"play", form().cmdPlay, "", false, false},
                        {"stop", form().cmdStop, "", false, false},
                        {"apri", form().Image3, "", false, true},
                        {"rec", form().cmdRec, "", true, false},
                        {"form", form(), "", true, true},
                        {"detta", form().imgDetta, "apri play", false, false}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.over);
        for (auto& [name, button] : buttons) {
            button.flag = name == row.over ? 0 : 1;
            form().load(button.control, name == row.over ? button.rest : button.hover);
        }
        form().HoverPlay = 1;
        form().imgDetta.top = form().DettaTop + 20;
        row.handler.MouseMove({});
        for (auto& [name, button] : buttons) {
            const bool lit = name == row.over || row.leaves.find(name) != std::string::npos;
            EXPECT_EQ(button.flag, lit ? 1 : 0) << name;
            EXPECT_TRUE(shows(button.control, lit ? button.hover : button.rest)) << name;
        }
        EXPECT_EQ(form().imgDetta.top == form().DettaTop, row.returnsDetta);
        EXPECT_EQ(form().HoverPlay == 0, row.clearsHoverPlay);
    }
}

TEST_F(SkinTest, Play_LightsThePictureOfItsState_AgainAfterEachPress) {
    open("a.mp3", 60);
    form().MouseMove({});
    form().cmdPlay.MouseMove({});
    EXPECT_TRUE(shows(form().cmdPlay, u"pause2.jpg"));
    form().cmdPlay.Click();
    EXPECT_TRUE(shows(form().cmdPlay, u"play.jpg"));
    form().cmdPlay.MouseMove({});
    EXPECT_TRUE(shows(form().cmdPlay, u"play2.jpg"));
}

TEST_F(SkinTest, Detta_JumpsOnce_AndComesBack) {
    for (const auto& [over, top, left] :
         {std::tuple<controls::Control&, double, double>{form().imgDetta, 1445, 4100},
          {form().imgDetta, 1445, 4100},
          {form(), 1425, 4080}}) {
        over.MouseMove({});
        EXPECT_EQ(form().imgDetta.top, top);
        EXPECT_EQ(form().imgDetta.left, left);
    }
}
