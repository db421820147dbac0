#include "fakes/workbench.h"

// Moves the mouse over the skin and checks what each handler highlights, resets and leaves alone.
struct SkinTest : fakes::WorkbenchTest {
    struct Button {
        controls::PictureButton* control;
        int* flag;
        base::Text rest, hover;
    };

    static constexpr double dettaTop = 1425; // at rest
    const Button buttons[6] = {
        {&form().Image3, &form().HoverApri, u"Apri.bmp", u"Apri2.bmp"},
        {&form().cmdPlay, &form().FlagHoverSkin, u"play.jpg", u"play2.jpg"},
        {&form().cmdIndietro, &form().HoverIndietro, u"bac.jpg", u"bac2.jpg"},
        {&form().cmdAvanz, &form().HoverAvanz, u"for.jpg", u"for2.jpg"},
        {&form().cmdStop, &form().HoverStop, u"stop.jpg", u"stop2.jpg"},
        {&form().cmdRec, &form().HoverRec, u"rec.jpg", u"rec2.jpg"},
    };
};

TEST_F(SkinTest, EachHandler_HighlightsItsButton_AndResetsTheOthersInItsRow) {
    controls::Control* const handlers[] = {&form().Image3,   &form().cmdPlay, &form().cmdIndietro,
                                           &form().cmdAvanz, &form().cmdStop, &form().cmdRec,
                                           &form().imgDetta, &form()};
    for (controls::Control* const over : handlers) {
        SCOPED_TRACE(over->name);
        for (const Button& button : buttons) {
            *button.flag = button.control != over;
            form().load(*button.control, *button.flag ? button.hover : button.rest);
        }
        form().HoverPlay = 1;
        form().imgDetta.top = dettaTop + 20;
        over->MouseMove({});
        for (const Button& button : buttons) {
            const bool left = over == &form().imgDetta &&
                              (button.control == &form().Image3 || button.control == &form().cmdPlay);
            const bool lit = left || button.control == over;
            EXPECT_EQ(*button.flag, lit) << base::toUtf8(button.rest);
            EXPECT_EQ(button.control->picture.get(), form().folder.files(lit ? button.hover : button.rest));
        }
        EXPECT_EQ(form().imgDetta.top == dettaTop, over == &form() || over == &form().cmdRec);
        EXPECT_EQ(form().HoverPlay == 0, over == &form() || over == &form().Image3);
    }
}
