#include "fakes/workbench.h"

#include <map>

// Walks the mouse over the skin and looks at what each handler lit, reset and left alone.
class SkinTest : public testing::Test {
protected:
    struct Button {
        controls::PictureButton* control;
        int* flag;
        base::Text rest;
        base::Text hover;
    };

    void move(const std::string& over) {
        const std::map<std::string, controls::Control*> handlers = {
            {"apri", &form.Image3},    {"play", &form.cmdPlay}, {"indietro", &form.cmdIndietro},
            {"avanz", &form.cmdAvanz}, {"stop", &form.cmdStop}, {"rec", &form.cmdRec},
            {"detta", &form.imgDetta}, {"form", &form}};
        handlers.at(over)->MouseMove({});
    }
    base::Text file(const controls::Picture& picture) {
        return base::Text(base::afterLast(picture.picture.get(), base::pathSeparator));
    }

    fakes::Workbench bench;
    player::Form1& form = bench.form();
    std::map<std::string, Button> buttons = {
        {"apri", {&form.Image3, &form.HoverApri, u"Apri.bmp", u"Apri2.bmp"}},
        {"play", {&form.cmdPlay, &form.FlagHoverSkin, u"play.jpg", u"play2.jpg"}},
        {"indietro", {&form.cmdIndietro, &form.HoverIndietro, u"bac.jpg", u"bac2.jpg"}},
        {"avanz", {&form.cmdAvanz, &form.HoverAvanz, u"for.jpg", u"for2.jpg"}},
        {"stop", {&form.cmdStop, &form.HoverStop, u"stop.jpg", u"stop2.jpg"}},
        {"rec", {&form.cmdRec, &form.HoverRec, u"rec.jpg", u"rec2.jpg"}},
    };
};

TEST_F(SkinTest, EachHandler_LightsItsOwnAndResetsTheOthersOfItsRow) {
    struct Row {
        std::string over;
        std::vector<std::string> leaves; // what it does not reset, besides itself
        bool returnsDetta;
        bool clearsHoverPlay;
    };
    const Row rows[] = {{"avanz", {}, false, false}, {"indietro", {}, false, false},
                        {"play", {}, false, false},  {"stop", {}, false, false},
                        {"apri", {}, false, true},   {"rec", {}, true, false},
                        {"form", {}, true, true},    {"detta", {"apri", "play"}, false, false}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.over);
        for (auto& [name, button] : buttons) {
            *button.flag = name == row.over ? 0 : 1;
            form.load(*button.control, name == row.over ? button.rest : button.hover);
        }
        form.HoverPlay = 1;
        form.imgDetta.top = form.DettaTop + 20;
        form.imgDetta.left = form.DettaLeft + 20;
        move(row.over);
        for (auto& [name, button] : buttons) {
            const bool lit = name == row.over || std::count(row.leaves.begin(), row.leaves.end(), name) > 0;
            EXPECT_EQ(*button.flag, lit ? 1 : 0) << name;
            EXPECT_EQ(file(*button.control), lit ? button.hover : button.rest) << name;
        }
        EXPECT_EQ(form.imgDetta.top == form.DettaTop, row.returnsDetta);
        EXPECT_EQ(form.HoverPlay == 0, row.clearsHoverPlay);
    }
}

TEST_F(SkinTest, MovesOverOneButton_LoadItsPictureOnce) {
    int changes = 0;
    move("stop");
    form.forEachControl([&](auto& control) { control.observe([&] { ++changes; }); });
    for (int i = 0; i < 100; ++i)
        move("stop");
    EXPECT_EQ(changes, 0);
    move("play");
    EXPECT_EQ(changes, 2);
}

TEST_F(SkinTest, Play_LightsThePictureOfItsState_AgainAfterEachPress) {
    bench.open("a.mp3", 60);
    move("form");
    move("play");
    EXPECT_EQ(file(form.cmdPlay), u"pause2.jpg");
    form.cmdPlay.Click();
    EXPECT_EQ(file(form.cmdPlay), u"play.jpg");
    move("play");
    EXPECT_EQ(file(form.cmdPlay), u"play2.jpg");
}

TEST_F(SkinTest, Detta_JumpsOnce_AndStaysShiftedOverOtherButtons) {
    for (const std::string over : {"detta", "detta", "play", "stop"}) {
        move(over);
        EXPECT_EQ(form.imgDetta.top, 1445) << over;
        EXPECT_EQ(form.imgDetta.left, 4100) << over;
    }
    move("form");
    EXPECT_EQ(form.imgDetta.top, 1425);
    EXPECT_EQ(form.imgDetta.left, 4080);
}
