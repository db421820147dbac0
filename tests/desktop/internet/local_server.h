#pragma once

#include <QSslConfiguration>
#include <QSslSocket>
#include <QTcpServer>
#include <QThread>
#include <atomic>
#include <functional>
#include <future>

namespace fakes {

// A web server on this machine, on a thread of its own: it reads the head of each request and answers by a
// function.
class LocalServer : public QThread {
public:
    using Answer = std::function<void(QSslSocket& client, const QByteArray& request)>;

    // With a configuration it speaks TLS.
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
    bool stopped() const { return stop_; }

private:
    class Listener : public QTcpServer {
    public:
        using QTcpServer::QTcpServer;
        std::function<void(qintptr)> incoming;
        void incomingConnection(qintptr handle) override { incoming(handle); }
    };

    void run() override {
        Listener listener;
        listener.incoming = [this](qintptr handle) { serve(handle); };
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
        client.waitForBytesWritten(2000);
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

} // namespace fakes
