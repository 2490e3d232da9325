#include "Platform/Qt/QtHttpClient.h"

#include "adapters/EventLoopWait.h"
#include "adapters/ScriptedServer.h"

#include <QSslSocket>

#include <gtest/gtest.h>

#include <chrono>
#include <optional>

namespace orvelle {
namespace {

constexpr Seconds patience = 0.4; ///< of requests that are to run out of time
const std::string notSecure = "is not secure";
const std::string timedOut = "The request timed out.";
const std::string tooLong = "The answer is too long.";

/// RFC 1952 around data that were compressed beforehand.
QByteArray gzip(const QByteArray& data) {
    // zlib's own wrapper: a head of four bytes by Qt and two by zlib, a tail of four.
    const auto wrapped = qCompress(data, 9);
    const auto deflated = wrapped.mid(6, wrapped.size() - 10);
    quint32 crc = 0xFFFFFFFFu;
    for (const char byte : data) {
        crc ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ (0xEDB88320u & (0u - (crc & 1)));
    }
    QByteArray result = QByteArray::fromHex("1f8b08000000000002ff") + deflated;
    for (const quint32 word : {~crc, static_cast<quint32>(data.size())})
        for (int shift = 0; shift < 32; shift += 8)
            result.append(static_cast<char>(word >> shift));
    return result;
}

HttpReply fetch(HttpClient& client, HttpRequest request) {
    std::optional<HttpReply> reply;
    const auto handle =
        client.get(std::move(request), [&](const HttpReply& answer) { reply = answer; });
    EXPECT_FALSE(reply) << "an answer during the call";
    EXPECT_TRUE(waitUntil([&] { return reply.has_value(); }));
    return reply.value_or(HttpReply{"no answer", 0, {}});
}

const QtHttpClient::Options hasty{.authorities = {},
                                  .longestTransfer = std::chrono::milliseconds(900)};

/// How a server treats a plain request, and what must come of it.
struct Case {
    const char* name;
    ScriptedServer::Answer answer;
    int status = 0;   ///< 0 stands for an error
    std::string text; ///< the whole body, or a part of the error
};

void PrintTo(const Case& shown, std::ostream* stream) {
    *stream << shown.name;
}

/// Goes on writing as long as the other side reads.
ScriptedServer::Answer endless(QByteArray head, QByteArray portion) {
    return [head, portion](QTcpSocket& socket) {
        socket.write(head);
        const auto more = [&socket, portion] {
            if (socket.bytesToWrite() < 1 << 20)
                socket.write(portion);
        };
        QObject::connect(&socket, &QTcpSocket::bytesWritten, &socket, more);
        more();
    };
}

ScriptedServer::Answer dripping(QByteArray head) {
    return [head](QTcpSocket& socket) {
        socket.write(head);
        auto* drip = new QTimer(&socket);
        QObject::connect(drip, &QTimer::timeout, &socket, [&socket] { socket.write("x"); });
        drip->start(20);
    };
}

const QByteArray okHead = "HTTP/1.1 200 OK\r\n";
const QByteArray chunked = okHead + "Transfer-Encoding: chunked\r\n\r\n";
const QByteArray gzipHead = okHead + "Content-Encoding: gzip\r\n";
const auto bodyLimit = static_cast<qsizetype>(HttpClient::bodyLimit);

QByteArray withLength(const QByteArray& head, const QByteArray& body) {
    return head + "Content-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body;
}

/// Packs the bomb when it is asked for: the list of cases is made in every run of every test.
ScriptedServer::Answer bombing(std::function<QByteArray(const QByteArray& bomb)> reply) {
    return [reply = std::move(reply)](QTcpSocket& socket) {
        ScriptedServer::writing(reply(gzip(QByteArray(64 << 20, 'a'))))(socket);
    };
}

std::vector<Case> cases() {
    std::vector<Case> list = {
        {"AWholeAnswer", ScriptedServer::replying(200, "{}"), 200, "{}"},
        {"NoContent", ScriptedServer::writing("HTTP/1.1 204 No Content\r\n\r\n"), 204, ""},
        {"NothingModified", ScriptedServer::writing("HTTP/1.1 304 Not Modified\r\n\r\n"), 304, ""},
        {"AnAnswerOfHTTP10", ScriptedServer::writing("HTTP/1.0 200 OK\r\n\r\nold"), 200, "old"},
        {"AnAnswerWithoutALength", ScriptedServer::writing(okHead + "\r\nplain"), 200, "plain"},
        {"AnAnswerInPieces", ScriptedServer::writing(chunked + "3\r\nabc\r\n2\r\nde\r\n0\r\n\r\n"),
         200, "abcde"},
        {"AContinueBefore",
         ScriptedServer::writing("HTTP/1.1 100 Continue\r\n\r\n" + withLength(okHead, "after")),
         200, "after"},
        {"AWrongContentType", ScriptedServer::replying(200, "{}", "Content-Type: image/png\r\n"),
         200, "{}"},
        {"ABodyOfNULs", ScriptedServer::replying(200, QByteArray(3, '\0')), 200,
         std::string(3, '\0')},
        {"ABodyAtTheLimit", ScriptedServer::replying(200, QByteArray(bodyLimit, 'a')), 200,
         std::string(HttpClient::bodyLimit, 'a')},
        {"ABodyOneBeyondTheLimit", ScriptedServer::replying(200, QByteArray(bodyLimit + 1, 'a')), 0,
         tooLong},
        {"AnErrorWithAHugeBody", ScriptedServer::replying(500, QByteArray(bodyLimit + 1, 'a')), 0,
         tooLong},
        {"AnEndlessBody", endless(okHead + "\r\n", QByteArray(1 << 16, 'a')), 0, tooLong},
        {"EndlessPieces", endless(chunked, "1000\r\n" + QByteArray(0x1000, 'a') + "\r\n"), 0,
         tooLong},
        {"ACompressedBody", ScriptedServer::writing(withLength(gzipHead, gzip("{\"a\":1}"))), 200,
         "{\"a\":1}"},
        {"ACompressedBodyAtTheLimit",
         ScriptedServer::writing(withLength(gzipHead, gzip(QByteArray(bodyLimit, 'a')))), 200,
         std::string(HttpClient::bodyLimit, 'a')},
        {"ASmallBomb",
         ScriptedServer::writing(withLength(gzipHead, gzip(QByteArray(bodyLimit + 1, 'a')))), 0,
         tooLong},
        {"ABomb", bombing([](const QByteArray& bomb) { return withLength(gzipHead, bomb); }), 0,
         ""},
        {"ABombWithoutALength",
         bombing([](const QByteArray& bomb) { return gzipHead + "\r\n" + bomb; }), 0, ""},
        {"ACompressedBodyThatIsNone",
         ScriptedServer::writing(withLength(gzipHead, "no gzip at all")), 0, ""},
        {"AnUnknownCompression", ScriptedServer::replying(200, "{}", "Content-Encoding: zebra\r\n"),
         200, "{}"},
        {"NoAnswerAtAll", [](QTcpSocket&) {}, 0, timedOut},
        {"AStallAfterTheHead",
         [](QTcpSocket& socket) { socket.write(okHead + "Content-Length: 9\r\n\r\n"); }, 0,
         timedOut},
        {"AStallWithinTheBody",
         [](QTcpSocket& socket) { socket.write(okHead + "Content-Length: 9\r\n\r\nabc"); }, 0,
         timedOut},
        {"ADripThatNeverEnds", dripping(okHead + "\r\n"), 0, timedOut},
        {"AHeadThatNeverEnds", dripping(okHead + "X-Word: "), 0, ""},
        {"EndlessHeadLines", endless(okHead, "X-Word: " + QByteArray(1000, 'a') + "\r\n"), 0, ""},
        {"AnEmptyAnswer", ScriptedServer::writing(""), 0, ""},
        {"AnAbortedConnection", [](QTcpSocket& socket) { socket.abort(); }, 0, ""},
        {"HalfAStatusLine", ScriptedServer::writing("HTTP/1.1 2"), 0, ""},
        {"GarbageForAStatusLine", ScriptedServer::writing("garbage\r\n\r\nmore"), 0, ""},
        {"AnotherProtocol", ScriptedServer::writing("SSH-2.0-OpenSSH\r\n"), 0, ""},
        {"AHeadThatIsCut", ScriptedServer::writing(okHead + "Content-Le"), 0, ""},
        {"ABodyThatIsCut", ScriptedServer::writing(okHead + "Content-Length: 9\r\n\r\nabc"), 0, ""},
        {"ALengthBeyondReason",
         ScriptedServer::writing(okHead + "Content-Length: 99999999999999\r\n\r\nabc"), 0, ""},
        {"ARedirectToItself", ScriptedServer::replying(301, "", "Location: /\r\n"), 0, notSecure},
        {"ARedirectElsewhere",
         ScriptedServer::replying(302, "", "Location: https://127.0.0.1:9/\r\n"), 0, notSecure},
        {"ARedirectToAFile", ScriptedServer::replying(302, "", "Location: file:///etc/passwd\r\n"),
         0, ""},
    };
    for (const int status : {400, 401, 403, 404, 408, 410, 418, 429, 451, 500, 502, 503, 504, 599})
        list.push_back({"", ScriptedServer::replying(status, "why"), status, "why"});
    return list;
}

class AnyAnswer : public testing::TestWithParam<Case> {};

TEST_P(AnyAnswer, IsDeliveredWholeOrIsAnError) {
    ScriptedServer server;
    server.answer = GetParam().answer;
    QtHttpClient client(hasty);
    const auto reply = fetch(client, {.url = server.url(), .timeout = patience});
    if (GetParam().status != 0) {
        EXPECT_EQ(reply.error, std::nullopt);
        EXPECT_EQ(reply.status, GetParam().status);
        EXPECT_TRUE(reply.body == GetParam().text) << reply.body.size() << " bytes";
        return;
    }
    ASSERT_TRUE(reply.error) << reply.status << " with " << reply.body.size() << " bytes";
    EXPECT_FALSE(reply.error->empty());
    EXPECT_NE(reply.error->find(GetParam().text), std::string::npos) << *reply.error;
    EXPECT_TRUE(reply.body.empty());
}

INSTANTIATE_TEST_SUITE_P(QtHttpClient, AnyAnswer, testing::ValuesIn(cases()),
                         [](const auto& instance) {
                             const std::string name = instance.param.name;
                             return name.empty() ? "Status" + std::to_string(instance.param.status)
                                                 : name;
                         });

class QtHttpClientTest : public testing::Test {
protected:
    ScriptedServer server;
    QtHttpClient client{hasty};
};

TEST_F(QtHttpClientTest, TheRequestGoesOverTheWireAsItStands) {
    server.answer = ScriptedServer::replying(200);
    fetch(client, {.url = server.url("/v1/x.json?a=48.0&b=%C3%A3%20c&c=1,2"),
                   .headers = {{"User-Agent", "Mozilla/5.0 (Test)"}}});
    ASSERT_EQ(server.requests.size(), 1);
    const auto lines = server.requests[0].split('\n');
    EXPECT_EQ(lines[0], "GET /v1/x.json?a=48.0&b=%C3%A3%20c&c=1,2 HTTP/1.1\r");
    EXPECT_TRUE(lines.contains("User-Agent: Mozilla/5.0 (Test)\r"));
    EXPECT_FALSE(server.requests[0].contains("Cache-Control"));
}

TEST_F(QtHttpClientTest, AFreshAnswerIsAskedForOfEveryCache) {
    server.answer = ScriptedServer::replying(200, "1", "Cache-Control: max-age=3600\r\n");
    const HttpRequest request{.url = server.url(),
                              .cachePolicy = HttpCachePolicy::reloadIgnoringLocalCache};
    fetch(client, request);
    fetch(client, request);
    ASSERT_EQ(server.requests.size(), 2);
    EXPECT_TRUE(server.requests[0].contains("Cache-Control: no-cache\r\n"));
    EXPECT_TRUE(server.requests[0].contains("User-Agent: Orvelle\r\n"));
}

TEST_F(QtHttpClientTest, OfPiecesThatAreCutNoMoreIsDeliveredThanCame) {
    server.answer = ScriptedServer::writing(chunked + "9\r\nabc");
    const auto reply = fetch(client, {.url = server.url()});
    EXPECT_TRUE(reply.error || reply.body == "abc") << reply.body;
}

TEST_F(QtHttpClientTest, CookiesAreNotKept) {
    server.answer = ScriptedServer::replying(200, "", "Set-Cookie: who=you\r\n");
    fetch(client, {.url = server.url()});
    fetch(client, {.url = server.url()});
    EXPECT_FALSE(server.requests.at(1).toLower().contains("cookie"));
}

TEST_F(QtHttpClientTest, NothingIsDeliveredAfterTheHandleDied) {
    int deliveries = 0;
    {
        const auto handle =
            client.get({.url = server.url()}, [&](const HttpReply&) { ++deliveries; });
        ASSERT_TRUE(waitUntil([&] { return server.requests.size() == 1; }));
    }
    server.answer = ScriptedServer::replying(200);
    fetch(client, {.url = server.url()});
    EXPECT_EQ(deliveries, 0);
}

TEST_F(QtHttpClientTest, ADroppedRequestClosesItsConnection) {
    bool isClosed = false;
    server.answer = [&](QTcpSocket& socket) {
        QObject::connect(&socket, &QTcpSocket::disconnected, [&] { isClosed = true; });
    };
    auto handle = client.get({.url = server.url()}, [](const HttpReply&) {});
    ASSERT_TRUE(waitUntil([&] { return server.requests.size() == 1; }));
    handle.reset();
    EXPECT_TRUE(waitUntil([&] { return isClosed; }));
}

TEST_F(QtHttpClientTest, TheHandleMayBeResetByTheCompletion) {
    server.answer = ScriptedServer::replying(200);
    Subscription handle;
    bool isDone = false;
    handle = client.get({.url = server.url()}, [&](const HttpReply&) {
        handle.reset();
        isDone = true;
    });
    EXPECT_TRUE(waitUntil([&] { return isDone; }));
}

TEST_F(QtHttpClientTest, ManyRequestsRunAtTheSameTime) {
    constexpr int count = 40;
    server.answer = ScriptedServer::replying(200, "x");
    int done = 0;
    std::vector<Subscription> handles;
    for (int index = 0; index < count; ++index)
        handles.push_back(client.get({.url = server.url(), .timeout = 10},
                                     [&](const HttpReply& reply) { done += reply.status == 200; }));
    EXPECT_TRUE(waitUntil([&] { return done == count; }));
}

TEST_F(QtHttpClientTest, AClientThatDiesWithRequestsUnderWayCallsNobody) {
    int deliveries = 0;
    Subscription handle;
    {
        QtHttpClient dying;
        handle = dying.get({.url = server.url()}, [&](const HttpReply&) { ++deliveries; });
        ASSERT_TRUE(waitUntil([&] { return server.requests.size() == 1; }));
        handle.reset();
    }
    EXPECT_EQ(deliveries, 0);
}

TEST_F(QtHttpClientTest, AddressesThatLeadNowhereAreErrors) {
    for (const auto* url :
         {"http://127.0.0.1:1/", "http://nowhere.invalid/", "http://127.0.0.1:0/",
          "http://127.0.0.1:99999/", "http:///", "file:///etc/hostname", "data:,text",
          "ftp://127.0.0.1:1/", "gopher://127.0.0.1/", "relative", "http://a b/"}) {
        const auto reply = fetch(client, {.url = url});
        EXPECT_TRUE(reply.error && !reply.error->empty()) << url;
    }
}

class QtHttpClientOverTLS : public testing::Test {
protected:
    static const Identity& trusted() {
        static const auto identity = Identity::forHost(QStringLiteral("IP:127.0.0.1"));
        return identity;
    }
    HttpReply get(const std::string& url) { return fetch(client, {.url = url}); }

    ScriptedServer server{trusted()};
    QtHttpClient client{{.authorities = {trusted().certificate}}};
};

TEST_F(QtHttpClientOverTLS, AnAuthorityThatIsTrustedVouchesForTheServer) {
    server.answer = ScriptedServer::replying(200, "secret");
    EXPECT_EQ(get(server.url()).body, "secret");
}

TEST_F(QtHttpClientOverTLS, ACertificateThatNobodyKnowsIsRefused) {
    server.answer = ScriptedServer::replying(200, "secret");
    QtHttpClient stranger;
    EXPECT_TRUE(fetch(stranger, {.url = server.url()}).error);
    EXPECT_TRUE(server.requests.isEmpty());
}

TEST_F(QtHttpClientOverTLS, ACertificateOfAnotherHostIsRefused) {
    const auto other = Identity::forHost(QStringLiteral("DNS:elsewhere.example"));
    ScriptedServer impostor(other);
    impostor.answer = ScriptedServer::replying(200, "secret");
    QtHttpClient trusting({.authorities = {other.certificate}});
    EXPECT_TRUE(fetch(trusting, {.url = impostor.url()}).error);
    EXPECT_TRUE(impostor.requests.isEmpty());
}

TEST_F(QtHttpClientOverTLS, AServerWithoutTLSIsAnError) {
    ScriptedServer plain;
    const auto url = "https://127.0.0.1:" + std::to_string(plain.serverPort()) + "/";
    EXPECT_TRUE(fetch(client, {.url = url, .timeout = patience}).error);
}

TEST_F(QtHttpClientOverTLS, ASecureRedirectIsFollowed) {
    server.answer = [this](QTcpSocket& socket) {
        const bool isFirst = server.requests.size() == 1;
        (isFirst ? ScriptedServer::replying(301, "", "Location: /there\r\n")
                 : ScriptedServer::replying(200, "there"))(socket);
    };
    EXPECT_EQ(get(server.url()).body, "there");
    EXPECT_TRUE(server.requests.at(1).startsWith("GET /there "));
}

TEST_F(QtHttpClientOverTLS, ALoopOfRedirectsEnds) {
    server.answer = ScriptedServer::replying(301, "", "Location: /\r\n");
    const auto reply = get(server.url());
    EXPECT_TRUE(reply.error) << reply.status;
    // The toolkit repeats a request whose connection the server closes at that moment.
    EXPECT_LE(server.requests.size(), 3 * 11);
}

TEST_F(QtHttpClientOverTLS, ARedirectOutOfTLSIsRefused) {
    ScriptedServer plain;
    plain.answer = ScriptedServer::replying(200, "plain");
    server.answer = ScriptedServer::replying(
        302, "", "Location: " + QByteArray::fromStdString(plain.url()) + "\r\n");
    const auto reply = get(server.url());
    ASSERT_TRUE(reply.error);
    EXPECT_NE(reply.error->find(notSecure), std::string::npos) << *reply.error;
    EXPECT_TRUE(plain.requests.isEmpty());
}

} // namespace
} // namespace orvelle
