#include "desktop/services/qt_child_process.h"

#include "qt_testing.h"

#include <csignal>
#include <fstream>

using How = platform::ChildProcess::End::How;

struct ChildProcess : testing::Test {
    ChildProcess() {
        process.OutputLine = [this](base::TextView line) { told.push_back("out " + base::toUtf8(line)); };
        process.ErrorLine = [this](base::TextView line) { told.push_back("err " + base::toUtf8(line)); };
        process.Finished = [this](const platform::ChildProcess::End& reported) { end = reported; };
    }
    void run(base::TextView script) { process.start({u"sh", u"-c", base::Text(script)}, folder.text("")); }
    std::string file(const std::string& name) const {
        return std::filesystem::exists(folder.path() / name) ? folder.read(name) : std::string();
    }
    bool isGone(const std::string& pidFile) const { return ::kill(std::stoi(file(pidFile)), 0) != 0; }
    // A child of nobody may stay a zombie for a while.
    bool hasEnded(const std::string& pidFile) const {
        std::ifstream stat("/proc/" + std::to_string(std::stoi(file(pidFile))) + "/stat");
        std::string content(std::istreambuf_iterator<char>(stat), {});
        return content.empty() || content.find(") Z") != std::string::npos;
    }

    fakes::TemporaryFolder folder;
    desktop::QtChildProcess process;
    std::vector<std::string> told;
    std::optional<platform::ChildProcess::End> end;
};

TEST_F(ChildProcess, Lines_OfBothKinds_ComeWhole_AndTheEndAfterThem) {
    run(u"printf 'a\\r\\n\\nb'; pwd >where; ps -o ni= -p $$ >nice; cat >&2; exit 3");
    ASSERT_TRUE(fakes::eventually([&] { return end.has_value(); }));
    EXPECT_EQ(told, (std::vector<std::string>{"out a", "out b"}));
    EXPECT_EQ(end->how, How::Exited);
    EXPECT_EQ(end->code, 3);
    EXPECT_EQ(file("where"), base::toUtf8(folder.text("")).substr(0, file("where").size() - 1) + '\n');
    EXPECT_GE(std::stoi(file("nice")), 10);
}

TEST_F(ChildProcess, ProgramsThatFail_AreToldFromThoseThatAreMissing) {
    run(u"echo why >&2; kill -KILL $$");
    ASSERT_TRUE(fakes::eventually([&] { return end.has_value(); }));
    EXPECT_EQ(told, std::vector<std::string>{"err why"});
    EXPECT_EQ(end->how, How::Killed);
    end.reset();
    process.start({u"/nowhere/recogniser"}, folder.text(""));
    EXPECT_FALSE(end) << "it is the event loop that reports";
    ASSERT_TRUE(fakes::eventually([&] { return end.has_value(); }));
    EXPECT_EQ(end->how, How::NotStarted);
    EXPECT_NE(end->failure, u"");
    EXPECT_TRUE(process.isInstalled(u"sh"));
    EXPECT_TRUE(process.isInstalled(u"/bin/sh"));
    EXPECT_FALSE(process.isInstalled(u"/bin"));
    EXPECT_FALSE(process.isInstalled(u"no-such-recogniser"));
}

TEST_F(ChildProcess, ACancelledProgram_EndsWithWhatItHasStarted_EvenIfItRefuses) {
    run(u"trap '' TERM; sleep 100 & echo $! >other; echo $$ >self; while :; do sleep 0.1; echo x; done");
    ASSERT_TRUE(fakes::eventually([&] { return !file("self").empty() && !told.empty(); }));
    process.cancel();
    told.clear();
    ASSERT_TRUE(fakes::eventually([&] { return isGone("self") && hasEnded("other"); }));
    EXPECT_TRUE(told.empty());
    EXPECT_FALSE(end);
    run(u"echo again");
    ASSERT_TRUE(fakes::eventually([&] { return end.has_value(); }));
    EXPECT_EQ(told, std::vector<std::string>{"out again"});
}

TEST_F(ChildProcess, AProgramThatNeverEndsItsLine_IsReportedInParts_AndAHandlerMayCancelIt) {
    process.OutputLine = [this](base::TextView line) {
        told.push_back(std::to_string(line.size()));
        process.cancel();
    };
    run(u"tr '\\0' x </dev/zero");
    ASSERT_TRUE(fakes::eventually([&] { return !told.empty(); }));
    EXPECT_EQ(told, std::vector<std::string>{"16384"});
    {
        desktop::QtChildProcess another;
        another.start({u"sh", u"-c", u"echo $$ >last; sleep 100"}, folder.text(""));
        ASSERT_TRUE(fakes::eventually([&] { return !file("last").empty(); }));
    }
    EXPECT_TRUE(isGone("last"));
}
