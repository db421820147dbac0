#include "desktop/services/qt_system.h"
#include "qt_testing.h"

// Another process of this program, and the facts that it reports.
struct OtherProcess : QProcess {
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
    // The locale, its country, and the byte E5 in the code page of its language.
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"en_GB.UTF-8", "United Kingdom", "å"},
        {"ru_RU.UTF-8", "Russia", "е"},
        {"fr_FR@euro", "France", "å"},
        {"C.UTF-8", "", "å"},
    };
    for (const auto& [locale, country, byteE5] : rows) {
        const OtherProcess process(QString::fromLatin1(locale));
        EXPECT_EQ(process.facts.value(1), QString::fromUtf8(country)) << locale;
        EXPECT_EQ(process.facts.value(2), QString::fromUtf8(byteE5)) << locale;
    }
}
