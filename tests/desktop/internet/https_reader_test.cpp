#include "contracts/internet_contract.h"
#include "https_reader.h"

#include <QElapsedTimer>
#include <QFile>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslSocket>
#include <QTcpServer>
#include <QThread>
#include <atomic>
#include <functional>
#include <future>

namespace {

// A web server on this machine, in its own thread: it reads the head of each request and calls a function to
// answer it.
class LocalServer : public QThread {
public:
    using Answer = std::function<void(QSslSocket& client, const QByteArray& request)>;

    // Uses TLS if there is a configuration.
    explicit LocalServer(Answer answer, std::optional<QSslConfiguration> tls = std::nullopt)
        : answer_(std::move(answer)), tls_(std::move(tls)) {
        start();
        port_ = listening_.get_future().get();
    }
    ~LocalServer() override {
        stop_ = true;
        wait();
    }

    std::string address(const char* scheme, const std::string& path = "/ver.txt") const {
        return std::string(scheme) + "://localhost:" + std::to_string(port_) + path;
    }

private:
    struct Listener : QTcpServer {
        std::function<void(qintptr)> incomingConnection_;
        void incomingConnection(qintptr handle) override { incomingConnection_(handle); }
    };

    void run() override {
        Listener listener;
        listener.incomingConnection_ = [this](qintptr handle) { serve(handle); };
        listener.listen(QHostAddress::LocalHost);
        listening_.set_value(listener.serverPort());
        while (!stop_)
            listener.waitForNewConnection(20);
    }
    void serve(qintptr handle) {
        QSslSocket client;
        client.setSocketDescriptor(handle);
        if (tls_) {
            client.setSslConfiguration(*tls_);
            client.startServerEncryption();
            if (!client.waitForEncrypted(5000))
                return;
        }
        QByteArray request;
        while (!request.contains("\r\n\r\n") && client.waitForReadyRead(5000))
            request += client.readAll();
        answer_(client, request);
        client.disconnectFromHost();
        if (client.state() != QAbstractSocket::UnconnectedState)
            client.waitForDisconnected(2000);
    }

    Answer answer_;
    std::optional<QSslConfiguration> tls_;
    std::promise<quint16> listening_;
    quint16 port_ = 0;
    std::atomic<bool> stop_ = false;
};

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
    client.write(QByteArray::fromStdString(bytes));
    client.waitForBytesWritten(2000);
}

std::string page(const std::string& body, const std::string& status = "200 OK") {
    return "HTTP/1.1 " + status + "\r\nContent-Length: " + std::to_string(body.size()) +
           "\r\nConnection: close\r\n\r\n" + body;
}

std::string redirection(const std::string& to) {
    return page("moved", "302 Found\r\nLocation: " + to);
}

LocalServer::Answer sends(const std::string& bytes) {
    return [bytes](QSslSocket& client, const QByteArray&) { send(client, bytes); };
}

// Sends these bytes, then keeps the connection open and silent until the client disconnects.
LocalServer::Answer hangsBehind(const std::string& bytes) {
    return [bytes](QSslSocket& client, const QByteArray&) {
        send(client, bytes);
        client.waitForDisconnected(5000);
    };
}

void sendsForEver(QSslSocket& client, const QByteArray&) {
    send(client, "HTTP/1.1 200 OK\r\n\r\n");
    while (client.state() == QAbstractSocket::ConnectedState)
        send(client, std::string(10'000, '9'));
}

// A page that is redirected this many times, each time to the next number.
LocalServer::Answer moved(int times) {
    return [times](QSslSocket& client, const QByteArray& request) {
        const int at = request.mid(5, 1).toInt(); // 0 for the first address, which is not a number
        send(client, at < times ? redirection("/" + std::to_string(at + 1)) : page("001015003"));
    };
}

struct HttpsBench : contracts::InternetBench {
    platform::Internet& internet() override { return reader; }
    std::string serve(const std::string& body) override {
        server = std::make_unique<LocalServer>(sends(page(body)));
        return server->address("http");
    }

    desktop::HttpsReader reader{std::chrono::milliseconds(2000)};
    std::unique_ptr<LocalServer> server;
};

std::string readFrom(const std::string& address) {
    return desktop::HttpsReader(std::chrono::milliseconds(2000)).read(address, "Quillmere");
}

} // namespace

namespace contracts {

INSTANTIATE_TEST_SUITE_P(Https, InternetContract, testing::Values(make<InternetBench, HttpsBench>));

} // namespace contracts

// What servers can answer, and what the reader returns; the update check decides what it means.
TEST(HttpsReader, Responses_AreReturnedUnchanged_UnsafeOnesNotAtAll) {
    QSslConfiguration trusting = QSslConfiguration::defaultConfiguration();
    trusting.addCaCertificate(QSslCertificate(certificateFile("authority.pem")));
    QSslConfiguration::setDefaultConfiguration(trusting);
    const LocalServer plain(sends(page("001015003")));
    const struct {
        const char* what;
        LocalServer::Answer answer;
        std::string received;
        const char* certificate = "good.pem";
    } rows[] = {
        {"a page of its own for what is missing", sends(page("<html>", "404 Not Found")), "<html>"},
        {"no HTTP", sends("999999999"), ""},
        {"ended by closing", sends("HTTP/1.0 200 OK\r\n\r\n001015003"), "001015003"},
        {"broken off", sends("HTTP/1.1 200 OK\r\nContent-Length: 99\r\n\r\n0010"), "0010"},
        {"hanging", hangsBehind(""), ""},
        {"hanging later", hangsBehind("HTTP/1.1 200 OK\r\nContent-Length: 99\r\n\r\n00101"), "00101"},
        {"endless", sendsForEver, std::string(64 * 1024 + 1, '9')},
        {"signed by nobody", sends(page("001015003")), "", "self-signed.pem"},
        {"signed for another host", sends(page("001015003")), "", "other-host.pem"},
        {"out of date", sends(page("001015003")), "", "expired.pem"},
        {"moved once", moved(1), "001015003"},
        {"moved twice", moved(2), ""},
        {"moved to a less safe place", sends(redirection(plain.address("http"))), ""},
    };
    for (const auto& row : rows) {
        const LocalServer server(row.answer, tls(row.certificate));
        QElapsedTimer clock;
        clock.start();
        EXPECT_EQ(readFrom(server.address("https")), row.received) << row.what;
        EXPECT_LT(clock.elapsed(), 2500) << row.what;
    }
}

TEST(HttpsReader, Request_HasTheUserAgent_BypassesCaches_AndUsesTheSystemsProxy) {
    const LocalServer server([](QSslSocket& client, const QByteArray& request) {
        send(client, page(request.toLower().toStdString()));
    });
    const std::string direct = readFrom(server.address("http"));
    for (const char* const part : {"user-agent: quillmere\r\n", "cache-control: no-cache\r\n"})
        EXPECT_NE(direct.find(part), std::string::npos) << direct;
    qputenv("http_proxy", server.address("http", "").c_str());
    EXPECT_TRUE(
        readFrom("http://version.example/ver.txt").starts_with("get http://version.example/ver.txt "));
    qunsetenv("http_proxy");
}
