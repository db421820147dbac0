#include "desktop/services/qt_system.h"
#include "qt_testing.h"

namespace {

// Another process of this program, and the facts that it reports.
class OtherProcess : public QProcess {
public:
    explicit OtherProcess(const QString& locale = QStringLiteral("C.UTF-8")) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("LC_ALL"), locale);
        setProcessEnvironment(environment);
        start(QCoreApplication::applicationFilePath(), {QStringLiteral("--tell-system")});
        while (facts.size() < 3 && (canReadLine() || waitForReadyRead(10'000)))
            facts << QString::fromUtf8(readLine()).chopped(1);
    }
    ~OtherProcess() override {
        closeWriteChannel();
        waitForFinished();
    }
    QStringList facts{};
};

} // namespace

TEST(QtSystem, SecondInstance_IsRefused_UntilTheFirstIsGone) {
    std::optional<desktop::QtSystem> here(std::in_place);
    {
        OtherProcess first;
        EXPECT_EQ(first.facts.value(0), QStringLiteral("first"));
        EXPECT_TRUE(here->previousInstance());
        first.kill();
        ASSERT_TRUE(first.waitForFinished());
    }
    EXPECT_FALSE(here->previousInstance());
    EXPECT_FALSE(here->previousInstance()) << "asked again by the running instance";
    EXPECT_EQ(OtherProcess().facts.value(0), QStringLiteral("refused"));
    // A program started from here may outlive this one and does not count as an instance.
    QProcess child;
    child.start(QStringLiteral("cat"), {});
    ASSERT_TRUE(child.waitForStarted());
    here.reset();
    EXPECT_EQ(OtherProcess().facts.value(0), QStringLiteral("first"));
    child.closeWriteChannel();
    child.waitForFinished();
}

TEST(QtSystem, UserLocale_GivesCountryAndCodePage) {
    const struct {
        const char* locale;
        const char* country;
        const char* byteE5; // decoded in the code page of the language
    } rows[] = {
        {"en_GB.UTF-8", "United Kingdom", "å"},
        {"ru_RU.UTF-8", "Russia", "е"},
        {"fr_FR@euro", "France", "å"},
        {"C.UTF-8", "", "å"},
    };
    for (const auto& row : rows) {
        const OtherProcess process(QString::fromLatin1(row.locale));
        EXPECT_EQ(process.facts.value(1), QString::fromUtf8(row.country)) << row.locale;
        EXPECT_EQ(process.facts.value(2), QString::fromUtf8(row.byteE5)) << row.locale;
    }
}
