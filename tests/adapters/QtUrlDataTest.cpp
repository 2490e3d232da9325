#include "Platform/Qt/QtUrlData.h"

#include "Platform/Qt/QtRunLoop.h"
#include "Support/TemporaryFolder.h"
#include "adapters/EventLoopWait.h"

#include <QTcpServer>
#include <QTcpSocket>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace orvelle {
namespace {

constexpr std::size_t byteLimit = 1000;

/// Answers every request with the same words, or never.
class WebServer {
public:
    explicit WebServer(QByteArray answer) : answer_(std::move(answer)) {
        server_.listen(QHostAddress::LocalHost);
        QObject::connect(&server_, &QTcpServer::newConnection, [this] {
            auto* socket = server_.nextPendingConnection();
            QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
                ++requests;
                if (answer_.isEmpty())
                    return;
                socket->write(answer_);
                socket->disconnectFromHost();
            });
        });
    }
    std::string url(const std::string& scheme = "http") const {
        return scheme + "://127.0.0.1:" + std::to_string(server_.serverPort()) + "/cover";
    }
    static QByteArray page(const QByteArray& body) {
        return "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(body.size()) +
               "\r\n\r\n" + body;
    }

    int requests = 0;

private:
    QByteArray answer_;
    QTcpServer server_;
};

class QtUrlDataTest : public testing::Test {
protected:
    /// Reads in the background, as the program does.
    std::optional<std::string> read(const std::string& url) {
        std::optional<SharedBytes> bytes;
        bool done = false;
        const auto reading =
            loop.detach([&] { bytes = urls.read(url, byteLimit, {}); }, [&] { done = true; });
        EXPECT_TRUE(waitUntil([&] { return done; })) << url;
        return bytes ? std::optional(std::string(bytes->view())) : std::nullopt;
    }

    TemporaryFolder files;
    QtUrlData urls;
    QtRunLoop loop;
};

TEST_F(QtUrlDataTest, FilesAreReadUpToTheLimit) {
    files.write("cover 1.png", "picture");
    files.write("full", std::string(byteLimit, 'x'));
    files.write("large", std::string(byteLimit + 1, 'x'));
    files.write("empty", "");
    EXPECT_EQ(read("file://" + files.path("cover%201.png")), "picture");
    EXPECT_EQ(read("file://" + files.path("full")), std::string(byteLimit, 'x'));
    EXPECT_EQ(read("file://" + files.path("large")), std::nullopt);
    EXPECT_EQ(read("file://" + files.path("empty")), "");
    EXPECT_EQ(read("file://" + files.path("missing")), std::nullopt);
}

TEST_F(QtUrlDataTest, OnlyRegularFilesAreRead) {
    ASSERT_EQ(mkfifo(files.path("pipe").c_str(), 0600), 0);
    EXPECT_EQ(read("file://" + files.path("pipe")), std::nullopt);
    EXPECT_EQ(read("file://" + files.path()), std::nullopt);
    EXPECT_EQ(read("file:///dev/zero"), std::nullopt);
}

TEST_F(QtUrlDataTest, AnAddressMayHoldTheBytesItself) {
    EXPECT_EQ(read("data:image/png;base64,cGljdHVyZQ=="), "picture");
    EXPECT_EQ(read("data:,a%20text"), "a text");
    EXPECT_EQ(read("data:image/png;base64,no~base64"), std::nullopt);
    EXPECT_EQ(read("data:image/png"), std::nullopt);
    EXPECT_EQ(read("data:," + std::string(byteLimit + 1, 'x')), std::nullopt);
}

TEST_F(QtUrlDataTest, OtherAddressesGiveNothing) {
    for (const char* url :
         {"", "ftp://127.0.0.1/x", "/etc/hostname", "javascript:1", "file:", "http://"})
        EXPECT_EQ(read(url), std::nullopt) << url;
}

TEST_F(QtUrlDataTest, TheWebIsReadUpToTheLimit) {
    WebServer server(WebServer::page("picture"));
    EXPECT_EQ(read(server.url()), "picture");
    WebServer tooMuch(WebServer::page(QByteArray(byteLimit + 1, 'x')));
    EXPECT_EQ(read(tooMuch.url()), std::nullopt);
    WebServer silentAboutIt("HTTP/1.1 200 OK\r\n\r\n" + QByteArray(100 * byteLimit, 'x'));
    EXPECT_EQ(read(silentAboutIt.url()), std::nullopt);
    WebServer missing("HTTP/1.1 404 Not Found\r\nContent-Length: 4\r\n\r\nnone");
    EXPECT_EQ(read(missing.url()), std::nullopt);
    WebServer truncated("HTTP/1.1 200 OK\r\nContent-Length: 90\r\n\r\nonly this");
    EXPECT_EQ(read(truncated.url()), std::nullopt);
}

TEST_F(QtUrlDataTest, ARedirectionIsFollowed) {
    WebServer target(WebServer::page("picture"));
    WebServer server("HTTP/1.1 302 Found\r\nLocation: " + QByteArray::fromStdString(target.url()) +
                     "\r\nContent-Length: 0\r\n\r\n");
    EXPECT_EQ(read(server.url()), "picture");
    WebServer redirecting("HTTP/1.1 302 Found\r\nLocation: file:///etc/hostname\r\n"
                          "Content-Length: 0\r\n\r\n");
    EXPECT_EQ(read(redirecting.url()), std::nullopt);
}

TEST_F(QtUrlDataTest, AServerWithoutAValidCertificateIsNotBelieved) {
    WebServer server(WebServer::page("picture"));
    EXPECT_EQ(read(server.url("https")), std::nullopt);
}

TEST_F(QtUrlDataTest, AStopEndsTheWaitForAServerThatNeverAnswers) {
    WebServer server{QByteArray()};
    std::stop_source stop;
    std::optional<SharedBytes> bytes;
    bool done = false;
    const auto reading =
        loop.detach([&] { bytes = urls.read(server.url(), byteLimit, stop.get_token()); },
                    [&] { done = true; });
    ASSERT_TRUE(waitUntil([&] { return server.requests == 1; }));
    QElapsedTimer elapsed;
    elapsed.start();
    stop.request_stop();
    EXPECT_TRUE(waitUntil([&] { return done; }));
    EXPECT_LT(elapsed.elapsed(), 3000);
    EXPECT_FALSE(bytes);
    EXPECT_FALSE(urls.read("data:,text", byteLimit, stop.get_token()))
        << "and nothing begins any more";
    WebServer other(WebServer::page("picture"));
    EXPECT_EQ(read(other.url()), "picture");
}

TEST_F(QtUrlDataTest, TheEndOfTheProgramDoesNotWaitForAServerThatNeverAnswers) {
    WebServer server{QByteArray()};
    std::optional<SharedBytes> bytes;
    bool done = false;
    const auto reading =
        loop.detach([&] { bytes = urls.read(server.url(), byteLimit, {}); }, [&] { done = true; });
    ASSERT_TRUE(waitUntil([&] { return server.requests == 1; }));
    QElapsedTimer elapsed;
    elapsed.start();
    urls.end();
    EXPECT_TRUE(waitUntil([&] { return done; }));
    EXPECT_LT(elapsed.elapsed(), 3000);
    EXPECT_FALSE(bytes);
    EXPECT_EQ(read(server.url()), std::nullopt) << "and nothing begins any more";
}

} // namespace
} // namespace orvelle
