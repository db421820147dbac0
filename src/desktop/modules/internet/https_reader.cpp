#include "https_reader.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkProxyFactory>
#include <QNetworkReply>
#include <QTimer>
#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

namespace desktop {

namespace {

constexpr std::size_t largestBody = 65'536;
constexpr int mostRedirections = 1;

// True once a read has timed out. System calls that it began may still run, and nothing tells when they end.
std::atomic<bool> gaveUp = false;

// Shared by the waiting thread and the reading thread; the last one to leave deletes it.
class Answer {
public:
    void append(const QByteArray& bytes) {
        const std::lock_guard alone(mutex_);
        bytes_ += bytes.toStdString();
    }
    void finish() {
        const std::lock_guard alone(mutex_);
        finished_ = true;
        changed_.notify_one();
    }
    // Waits until the read has finished or until `until`, and returns the bytes received by then.
    std::string wait(std::chrono::steady_clock::time_point until) {
        std::unique_lock alone(mutex_);
        if (!changed_.wait_until(alone, until, [this] { return finished_; }))
            gaveUp = true;
        return bytes_;
    }

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    std::string bytes_;
    bool finished_ = false;
};

class SystemProxies : public QNetworkProxyFactory {
public:
    QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery& query) override {
        return systemProxyForQuery(query);
    }
};

QNetworkRequest request(const std::string& address, const std::string& agent) {
    QNetworkRequest asked(QUrl(QString::fromStdString(address)));
    asked.setHeader(QNetworkRequest::UserAgentHeader, QString::fromStdString(agent));
    // Bypass caches on the way too.
    asked.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    asked.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    asked.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    asked.setMaximumRedirectsAllowed(mostRedirections);
    return asked;
}

void readInto(Answer& answer, const QNetworkRequest& asked, std::chrono::milliseconds limit) {
    QNetworkAccessManager manager;
    manager.setProxyFactory(new SystemProxies);
    QEventLoop loop;
    const std::unique_ptr<QNetworkReply> reply(manager.get(asked));
    std::size_t size = 0;
    const auto take = [&] {
        const QByteArray bytes = reply->read(static_cast<qint64>(largestBody + 1 - size));
        size += static_cast<std::size_t>(bytes.size());
        answer.append(bytes);
        if (size > largestBody)
            reply->abort();
    };
    QObject::connect(reply.get(), &QNetworkReply::readyRead, &loop, take);
    QObject::connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);
    QTimer::singleShot(limit, &loop, &QEventLoop::quit);
    if (!reply->isFinished())
        loop.exec();
    if (reply->isOpen())
        take();
    // The time limit ended the loop, just before the waiting thread noticed the same.
    if (!reply->isFinished())
        gaveUp = true;
}

} // namespace

std::string HttpsReader::read(const std::string& address, const std::string& agent) {
    const auto until = std::chrono::steady_clock::now() + limit_;
    const auto answer = std::make_shared<Answer>();
    std::thread([answer, asked = request(address, agent), limit = limit_] {
        readInto(*answer, asked, limit);
        answer->finish();
    }).detach();
    return answer->wait(until);
}

bool HttpsReader::isHanging() {
    return gaveUp;
}

} // namespace desktop
