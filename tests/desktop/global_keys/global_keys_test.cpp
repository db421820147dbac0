#include "desktop/eventually.h"
#include "x_global_keys.h"

#include <QGuiApplication>
#include <QProcess>
#include <gmock/gmock.h>
#include <xcb/xtest.h>

using fakes::eventually;
using fakes::runLoop;
using platform::KeyHold;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// X key codes of places on a keyboard.
constexpr int keyA = 38, keyY = 29, keyZ = 52, f5 = 71, control = 37, alt = 64, super = 133;
constexpr int capsLock = 66, numLock = 77, nextLayout = 78;

void run(const QString& command) {
    EXPECT_EQ(QProcess::execute(command.section(u' ', 0, 0), command.split(u' ').sliced(1)), 0);
}

// A private X server; from now on, the one of this process.
struct PrivateServer {
    explicit PrivateServer(const char* options = "-noreset") {
        server.setStandardErrorFile(QProcess::nullDevice());
        server.startCommand(QStringLiteral("Xvfb -displayfd 1 -nolisten tcp ") +
                            QString::fromLatin1(options));
        server.waitForReadyRead(20'000);
        qputenv("DISPLAY", ":" + server.readLine().trimmed());
    }
    ~PrivateServer() {
        server.terminate();
        server.waitForFinished();
    }
    QProcess server;
};

// Another program, with the keyboard in its window; and the keyboard of the user.
struct OtherProgram {
    OtherProgram() {
        qputenv("LC_ALL", "C.UTF-8");
        program.startCommand(QStringLiteral("stdbuf -oL xev -event keyboard"));
        run(QStringLiteral("xdotool search --sync --name Event.Tester windowfocus --sync"));
    }
    ~OtherProgram() {
        program.kill();
        program.waitForFinished();
    }
    // What was typed into the window so far, in UTF-8.
    std::string& typed() {
        program.waitForReadyRead(1);
        while (program.canReadLine()) {
            const QByteArray line = program.readLine();
            if (line.startsWith("Key"))
                isPress = line.startsWith("KeyPress");
            if (const auto at = line.indexOf(") \"");
                isPress && at > 0 && line.contains("XmbLookupString gives"))
                text += line.sliced(at + 3, line.lastIndexOf('"') - at - 3).toStdString();
        }
        return text;
    }
    // The user presses or releases X key codes, or presses a key with others held.
    void press(std::initializer_list<int> codes, bool down) const {
        for (const int code : codes)
            xcb_test_fake_input(user.connection(), down ? XCB_KEY_PRESS : XCB_KEY_RELEASE,
                                static_cast<std::uint8_t>(code), 0, 0, 0, 0, 0);
        xcb_flush(user.connection());
    }
    void tap(std::initializer_list<int> held, int key) const {
        press(held, true);
        press({key}, true);
        press({key}, false);
        press(held, false);
    }
    desktop::XKeyboard user;
    QProcess program;
    std::string text;
    bool isPress = false;
};

} // namespace

struct GlobalKeysTest : testing::Test {
    static void SetUpTestSuite() { server = new PrivateServer; }
    static void TearDownTestSuite() { delete std::exchange(server, nullptr); }
    static inline PrivateServer* server = nullptr;

    GlobalKeysTest() {
        useLayout("us");
        keys.Moved = [this](std::size_t index, bool pressed) { moves.emplace_back(index, pressed); };
        keys.NotTyped = [this](const base::Text&) { notTyped = true; };
        keys.Changed = [this](const auto& holds) { changed = holds; };
    }
    // The server has these layouts, such as "us,ru", of which the second one may be chosen.
    void useLayout(const char* names, bool second = false) {
        run(QStringLiteral("setxkbmap -option  -option grp:sclk_toggle -layout ") +
            QString::fromLatin1(names));
        if (std::exchange(onSecond, second) != second)
            other.tap({}, nextLayout);
        runLoop(300);
    }
    OtherProgram other;
    desktop::XGlobalKeys keys;
    std::vector<std::pair<std::size_t, bool>> moves;
    std::vector<KeyHold> changed;
    bool notTyped = false;
    bool onSecond = false;
};

TEST_F(GlobalKeysTest, HeldKeys_AreReportedOnce_WithAnyLocks_AndNotToTheProgramInFront) {
    EXPECT_THAT(keys.take({u"Meta+F5", u"Ctrl+Alt+A"}), ElementsAre(KeyHold::Held, KeyHold::Held));
    for (const std::vector<int>& locks : {std::vector<int>{}, {capsLock}, {numLock, capsLock}}) {
        for (const int lock : locks)
            other.tap({}, lock);
        moves.clear();
        other.press({super, f5}, true);
        runLoop(locks.empty() ? 900 : 100); // a keyboard repeats
        other.press({super, f5}, false);
        other.tap({control, alt}, keyA);
        EXPECT_TRUE(eventually([&] { return moves.size() == 4; }));
        EXPECT_THAT(moves, ElementsAre(std::pair(0U, true), std::pair(0U, false), std::pair(1U, true),
                                       std::pair(1U, false)));
        for (const int lock : locks)
            other.tap({}, lock);
    }
    other.tap({}, keyA);
    EXPECT_TRUE(eventually([&] { return other.typed() == "a"; })) << "no more than is taken";
}

TEST_F(GlobalKeysTest, AKeyOfAnotherProgram_IsTaken_UntilThatGivesItBack) {
    desktop::XGlobalKeys program;
    ASSERT_THAT(program.take({u"Ctrl+Alt+A"}), ElementsAre(KeyHold::Held));
    EXPECT_THAT(keys.take({u"Ctrl+Alt+A", u"Meta+F6", u"Ctrl+Alt+Rubbish", u""}),
                ElementsAre(KeyHold::Taken, KeyHold::Held, KeyHold::Unknown, KeyHold::Unknown));
    other.tap({control, alt}, keyA);
    runLoop(100);
    EXPECT_THAT(moves, IsEmpty());
    program.take({});
    EXPECT_THAT(keys.take({u"Ctrl+Alt+A"}), ElementsAre(KeyHold::Held));
}

TEST_F(GlobalKeysTest, Keys_FollowTheLayout) {
    ASSERT_THAT(keys.take({u"Ctrl+Alt+Y", u"Ctrl+Alt+Ж"}), ElementsAre(KeyHold::Held, KeyHold::Unknown));
    const std::tuple<const char*, bool, int> rows[] = {{"de", false, keyZ},
                                                       {"us,ru", false, keyY},
                                                       {"us,de", true, keyZ},
                                                       {"ru,us", true, keyY},
                                                       {"ru", false, keyY}};
    for (const auto& [layout, second, key] : rows) {
        useLayout(layout, second);
        moves.clear();
        other.tap({control, alt}, key);
        EXPECT_TRUE(eventually([&] { return moves.size() == 2; }, 2000)) << layout;
    }
    EXPECT_THAT(changed, ElementsAre(KeyHold::Held, KeyHold::Held));
}

TEST_F(GlobalKeysTest, Texts_AreTypedUnderAnyLayout_AndAfterwardsTheLayoutIsAsBefore) {
    for (const char* const layout : {"us", "fr", "gr,us", "us,ru"}) {
        useLayout(layout, layout == std::string_view("us,ru"));
        const auto unused = desktop::XKeyboard().unusedCodes();
        for (int caps = 0; caps < 2; ++caps) {
            other.typed().clear();
            keys.type(u"[01:23:45] ");
            keys.type(u"é€Жa");
            EXPECT_TRUE(eventually([&] { return other.typed() == "[01:23:45] é€Жa"; }, 5000))
                << layout << caps;
            other.tap({}, capsLock);
        }
        EXPECT_TRUE(eventually([&] { return desktop::XKeyboard().unusedCodes() == unused; })) << layout;
    }
}

TEST_F(GlobalKeysTest, AnEndWhileATextIsTyped_LeavesTheLayoutAsItWas) {
    const auto unused = desktop::XKeyboard().unusedCodes();
    {
        desktop::XGlobalKeys ending;
        ending.type(u"Жф");
        EXPECT_TRUE(eventually([&] { return desktop::XKeyboard().unusedCodes() != unused; }));
    }
    EXPECT_EQ(desktop::XKeyboard().unusedCodes(), unused);
}

TEST_F(GlobalKeysTest, ATextWaits_UntilTheUserHasLetGo) {
    keys.take({u"Meta+F5"});
    other.press({super, f5}, true);
    keys.type(u"12");
    runLoop(200);
    other.press({super}, false);
    runLoop(200);
    EXPECT_EQ(other.typed(), "") << "the key itself is still held";
    other.press({f5}, false);
    EXPECT_TRUE(eventually([&] { return other.typed() == "12"; }, 3000));
    other.press({control}, true);
    keys.type(u"3");
    EXPECT_TRUE(eventually([&] { return notTyped; })) << "not forever";
    other.press({control}, false);
    EXPECT_EQ(other.typed(), "12");
}

TEST(GlobalKeysWithout, AServer_OrItsTyping_SayIt) {
    const auto typesNothing = [](desktop::XGlobalKeys& keys) {
        bool told = false;
        keys.NotTyped = [&](const base::Text& text) { told = text == u"x"; };
        keys.type(u"x");
        return !told && eventually([&] { return told; });
    };
    {
        const PrivateServer server("-extension XTEST");
        desktop::XGlobalKeys keys;
        EXPECT_THAT(keys.take({u"Meta+F5"}), ElementsAre(KeyHold::Held));
        EXPECT_TRUE(typesNothing(keys));
    }
    qputenv("DISPLAY", ":64000");
    desktop::XGlobalKeys keys;
    EXPECT_NE(keys.failure(), u"");
    EXPECT_THAT(keys.take({u"Meta+F5"}), IsEmpty());
    EXPECT_TRUE(typesNothing(keys));
}

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
