#include "https_reader.h"

#include "fakes/workbench.h"
#include "local_server.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QSslCertificate>
#include <QSslKey>

using fakes::LocalServer;

namespace {

constexpr std::chrono::milliseconds shortLimit{700};

QByteArray certificateFile(const char* name) {
    QFile file(QStringLiteral(CERTIFICATES "/") + QLatin1String(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QSslConfiguration tls(const char* certificate) {
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificate(QSslCertificate(certificateFile(certificate)));
    configuration.setPrivateKey(QSslKey(certificateFile("server.key"), QSsl::Ec));
    return configuration;
}

void send(QSslSocket& client, const std::string& bytes) {
    client.write(bytes.data(), static_cast<qint64>(bytes.size()));
    client.waitForBytesWritten(2000);
}

std::string page(const std::string& body, const std::string& status = "200 OK",
                 const std::string& fields = {}) {
    return "HTTP/1.1 " + status + "\r\nContent-Length: " + std::to_string(body.size()) + "\r\n" + fields +
           "Connection: close\r\n\r\n" + body;
}

LocalServer::Answer sends(const std::string& bytes) {
    return [bytes](QSslSocket& client, const QByteArray&) { send(client, bytes); };
}

std::string redirection(const std::string& to) {
    return page("moved", "302 Found", "Location: " + to + "\r\n");
}

// A page that has moved so many times, each time to the next number.
LocalServer::Answer moved(int times) {
    return [times](QSslSocket& client, const QByteArray& request) {
        const int at = request.mid(5, 1).toInt(); // 0 for the first address, which is no number
        send(client, at < times ? redirection("/" + std::to_string(at + 1)) : page("001015003"));
    };
}

// Holds the line without a word until the other side hangs up.
void holdOn(QSslSocket& client) {
    client.waitForDisconnected(5000);
}

} // namespace

// What a server can answer, and what comes of it: the whole of what decides is the test of the update check.
TEST(HttpsReader, Answers_ThatAskTheUser_AndThoseThatStaySilent) {
    QSslConfiguration trusting = QSslConfiguration::defaultConfiguration();
    trusting.addCaCertificate(QSslCertificate(certificateFile("authority.pem")));
    QSslConfiguration::setDefaultConfiguration(trusting);
    const std::string html = "<!DOCTYPE html><html><body>404 Not Found</body></html>";
    const struct {
        const char* what;
        const char* certificate;
        LocalServer::Answer answer;
        std::string received;
        bool asks;
    } rows[] = {
        {"the version in use", "good.pem", sends(page("001015002")), "001015002", false},
        {"a newer one", "good.pem", sends(page("001015003")), "001015003", true},
        {"letters", "good.pem", sends(page("00a000000")), "00a000000", true},
        {"short", "good.pem", sends(page("1.2.3")), "1.2.3", false},
        {"a line break behind it", "good.pem", sends(page("999999999\r\n")), "999999999\r\n", false},
        {"an HTML page", "good.pem", sends(page(html, "404 Not Found")), html, false},
        {"nothing at all", "good.pem", sends(""), "", false},
        {"no HTTP", "good.pem", sends("999999999"), "", false},
        {"without a length, ended by closing", "good.pem", sends("HTTP/1.0 200 OK\r\n\r\n001015003"),
         "001015003", true},
        {"broken off inside of a page", "good.pem",
         sends("HTTP/1.1 200 OK\r\nContent-Length: 99\r\n\r\n0010"), "0010", false},
        {"hanging from the start", "good.pem", [](QSslSocket& client, const QByteArray&) { holdOn(client); },
         "", false},
        {"hanging in the middle", "good.pem",
         [](QSslSocket& client, const QByteArray&) {
             send(client, "HTTP/1.1 200 OK\r\nContent-Length: 99\r\n\r\n00101");
             holdOn(client);
         },
         "00101", false},
        {"endless", "good.pem",
         [](QSslSocket& client, const QByteArray&) {
             send(client, "HTTP/1.1 200 OK\r\n\r\n");
             while (client.state() == QAbstractSocket::ConnectedState)
                 send(client, std::string(10'000, '9'));
         },
         std::string(64 * 1024 + 1, '9'), false},
        {"signed by nobody", "self-signed.pem", sends(page("001015003")), "", false},
        {"signed for another host", "other-host.pem", sends(page("001015003")), "", false},
        {"out of date", "expired.pem", sends(page("001015003")), "", false},
        {"moved once", "good.pem", moved(1), "001015003", true},
        {"moved twice", "good.pem", moved(2), "", false},
        {"moved in a ring", "good.pem", sends(redirection("/ver.txt")), "", false},
    };
    for (const auto& row : rows) {
        const LocalServer server(row.answer, tls(row.certificate));
        const bool hangs = std::string_view(row.what).starts_with("hanging");
        desktop::HttpsReader reader(hangs ? shortLimit : desktop::HttpsReader::wholeRead);
        const std::string address = server.address("https");
        QElapsedTimer clock;
        clock.start();
        EXPECT_EQ(reader.read(address, "Test"), row.received) << row.what;
        EXPECT_LT(clock.elapsed(), 3500) << row.what;

        fakes::Workbench bench;
        outside::Links links(bench.form(), *bench.desktop.form2, *bench.desktop.form2,
                             bench.desktop.shellPort);
        outside::UpdateCheck check(bench.form(), links, reader, bench.desktop.dialogPort,
                                   bench.desktop.systemPort, address);
        check.ControllaAggiornamenti();
        EXPECT_EQ(bench.desktop.dialogPort.boxes.size(), row.asks ? 1U : 0U) << row.what;
    }
}

TEST(HttpsReader, LessSafeAddress_IsNotFollowed) {
    const LocalServer plain(sends(page("001015003")));
    const LocalServer safe(sends(redirection(plain.address("http"))), tls("good.pem"));
    EXPECT_EQ(desktop::HttpsReader().read(safe.address("https"), "Test"), "");
}

TEST(HttpsReader, Request_NamesTheAgent_AndWantsNoCache) {
    QByteArray seen;
    {
        const LocalServer server([&](QSslSocket& client, const QByteArray& request) {
            seen = request.toLower();
            send(client, page("001015003"));
        });
        desktop::HttpsReader().read(server.address("http"), "Quillmere");
    }
    EXPECT_TRUE(seen.contains("user-agent: quillmere\r\n")) << seen.toStdString();
    EXPECT_TRUE(seen.contains("cache-control: no-cache\r\n")) << seen.toStdString();
}

TEST(HttpsReader, SystemsProxy_IsUsed) {
    const LocalServer proxy([](QSslSocket& client, const QByteArray& request) {
        send(client, page(request.startsWith("GET http://version.example/ver.txt ") ? "001015003" : "wrong"));
    });
    qputenv("http_proxy", proxy.address("http", "").c_str());
    EXPECT_EQ(desktop::HttpsReader().read("http://version.example/ver.txt", "Test"), "001015003");
    qunsetenv("http_proxy");
}

TEST(HttpsReader, NobodyThere_IsSilence) {
    for (const char* address : {"https://localhost:1/", "https://nowhere.invalid/", "no address", ""})
        EXPECT_EQ(desktop::HttpsReader().read(address, "Test"), "") << address;
}

int main(int argc, char* argv[]) {
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
