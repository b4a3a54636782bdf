#include "platform/qt_platform.h"

#include "support/environment.h"
#include "support/qt_printers.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <functional>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPatienceMs = 20000;
constexpr qint64 kGigabyte = 1024 * 1024 * 1024;

/// A real server on this machine's own loopback. It gives each whole request to
/// the rule of the test and watches what becomes of the connection.
class LoopbackServer
{
public:
    using Answer = std::function<void(QTcpSocket&, const QByteArray& request)>;

    explicit LoopbackServer(Answer answer)
        : m_answer(std::move(answer))
    {
        EXPECT_TRUE(m_server.listen(QHostAddress::LocalHost));
        QObject::connect(&m_server, &QTcpServer::newConnection, [this] {
            while (QTcpSocket* const socket = m_server.nextPendingConnection())
                Serve(*socket);
        });
    }

    QString Address(const QString& path = u"/version.txt"_s) const
    {
        return u"http://127.0.0.1:%1%2"_s.arg(m_server.serverPort()).arg(path);
    }

    QList<QByteArray> requests;
    int left = 0; ///< connections that are over

private:
    void Serve(QTcpSocket& socket)
    {
        QObject::connect(&socket, &QTcpSocket::disconnected, &m_server, [this] { ++left; });
        QObject::connect(&socket, &QTcpSocket::readyRead, &m_server, [this, &socket] {
            QByteArray request = socket.property("request").toByteArray() + socket.readAll();
            const qsizetype end = request.indexOf("\r\n\r\n");
            socket.setProperty("request", end < 0 ? request : request.sliced(end + 4));
            if (end < 0)
                return;
            requests << request.first(end);
            m_answer(socket, request.first(end));
        });
    }

    Answer m_answer;
    QTcpServer m_server;
};

/// An answer that ends as it promises.
LoopbackServer::Answer Page(const QByteArray& status, const QByteArray& body, const QByteArray& more = {})
{
    return [status, body, more](QTcpSocket& socket, const QByteArray&) {
        socket.write("HTTP/1.1 " + status + "\r\n" + more
                     + "Content-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body);
    };
}

/// Sends the same block again and again, up to a size, never more than the
/// connection takes.
class Flood
{
public:
    Flood(QTcpSocket& socket, const QByteArray& block, qint64 size)
        : m_socket(socket)
        , m_block(block)
        , m_left(size)
    {
        QObject::connect(&socket, &QTcpSocket::bytesWritten, &socket, [this] { Go(); });
        Go();
    }

    qint64 Accepted() const { return m_accepted; }

private:
    void Go()
    {
        while (m_left > 0 && m_socket.bytesToWrite() < 1024 * 1024) {
            m_socket.write(m_block);
            m_accepted += m_block.size();
            m_left -= m_block.size();
        }
    }

    QTcpSocket& m_socket;
    QByteArray m_block;
    qint64 m_left;
    qint64 m_accepted = 0;
};

class WebFetchTest : public testing::Test
{
protected:
    void Get(const QString& address)
    {
        QElapsedTimer watch;
        watch.start();
        web.Get(address, [this](const QByteArray& bytes) { answers << bytes; });
        // Asking makes nobody wait for the answer, whatever becomes of it.
        EXPECT_LT(watch.elapsed(), 1500);
    }

    void ExpectAnswer(const QByteArray& bytes)
    {
        EXPECT_TRUE(QTest::qWaitFor([this] { return !answers.isEmpty(); }, kPatienceMs));
        EXPECT_EQ(answers, QList<QByteArray>{bytes});
    }

    /// The connection is given up and nothing was told; what might still come has
    /// had its time.
    void ExpectSilence(const LoopbackServer& server)
    {
        EXPECT_TRUE(QTest::qWaitFor([&server] { return server.left > 0; }, kPatienceMs));
        QTest::qWait(200);
        EXPECT_TRUE(answers.isEmpty()) << answers.value(0).left(100).constData();
    }

    QtWebFetch web;
    QList<QByteArray> answers;
};

} // namespace

TEST_F(WebFetchTest, BringsASmallText)
{
    const LoopbackServer server(Page("200 OK", "version=4.1\r\n"));

    Get(server.Address(u"/chimie/stoikal/version_stoikal.txt"_s));

    ExpectAnswer("version=4.1\r\n");
    ASSERT_EQ(server.requests.size(), 1);
    EXPECT_TRUE(server.requests[0].startsWith("GET /chimie/stoikal/version_stoikal.txt HTTP/1.1"));
}

TEST_F(WebFetchTest, AsksForNoCopyOfAnEarlierAnswer)
{
    int turn = 0;
    const LoopbackServer server([&turn](QTcpSocket& socket, const QByteArray& request) {
        Page("200 OK", QByteArray::number(++turn), "Cache-Control: max-age=3600\r\n")(socket, request);
    });

    Get(server.Address());
    ExpectAnswer("1");
    answers.clear();
    Get(server.Address());

    ExpectAnswer("2");
    EXPECT_TRUE(server.requests[0].toLower().contains("cache-control: no-cache"));
}

TEST_F(WebFetchTest, FollowsARedirection)
{
    const LoopbackServer server([](QTcpSocket& socket, const QByteArray& request) {
        if (request.startsWith("GET /old "))
            Page("302 Found", {}, "Location: /new\r\n")(socket, request);
        else
            Page("200 OK", "version=5.0")(socket, request);
    });

    Get(server.Address(u"/old"_s));

    ExpectAnswer("version=5.0");
}

TEST_F(WebFetchTest, LeavesACircleOfRedirections)
{
    const LoopbackServer server(Page("302 Found", {}, "Location: /version.txt\r\nConnection: close\r\n"));

    Get(server.Address());

    EXPECT_TRUE(QTest::qWaitFor([&server] { return server.left > 0; }, kPatienceMs));
    qsizetype before = -1;
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            const bool rests = before == server.requests.size();
            before = server.requests.size();
            QTest::qWait(300);
            return rests;
        },
        kPatienceMs));
    EXPECT_LT(server.requests.size(), 60);
    EXPECT_TRUE(answers.isEmpty());
}

TEST_F(WebFetchTest, IsNotLedToAFileOfThisMachine)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"secret"_s);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("version=9.9");
    file.close();
    const LoopbackServer server(
        Page("302 Found", {}, "Connection: close\r\nLocation: file://" + path.toUtf8() + "\r\n"));

    Get(server.Address());
    ExpectSilence(server);
    Get(u"file://"_s + path);
    QTest::qWait(200);

    EXPECT_TRUE(answers.isEmpty());
}

TEST_F(WebFetchTest, TakesARefusalForNoAnswer)
{
    const LoopbackServer server(Page("404 Not Found", "version=9.9", "Connection: close\r\n"));
    Get(server.Address());
    ExpectSilence(server);
}

TEST_F(WebFetchTest, IsSilentWhenNobodyListens)
{
    QTcpServer gone;
    ASSERT_TRUE(gone.listen(QHostAddress::LocalHost));
    const quint16 port = gone.serverPort();
    gone.close();

    Get(u"http://127.0.0.1:%1/version.txt"_s.arg(port));
    QTest::qWait(500);

    EXPECT_TRUE(answers.isEmpty());
}

TEST_F(WebFetchTest, DoesNotBelieveALengthThatIsTooLarge)
{
    const LoopbackServer server([](QTcpSocket& socket, const QByteArray&) {
        socket.write("HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\nversion=9.9");
        socket.disconnectFromHost();
    });
    Get(server.Address());
    ExpectSilence(server);
}

TEST_F(WebFetchTest, ReadsNoMoreThanTheLengthThatWasTold)
{
    const LoopbackServer server([](QTcpSocket& socket, const QByteArray&) {
        socket.write("HTTP/1.1 200 OK\r\nContent-Length: 11\r\n\r\nversion=9.9 and more");
    });
    Get(server.Address());
    ExpectAnswer("version=9.9");
}

TEST_F(WebFetchTest, GivesUpAServerThatSaysNothing)
{
    const LoopbackServer server([](QTcpSocket&, const QByteArray&) {});
    QElapsedTimer watch;
    watch.start();

    Get(server.Address());

    ExpectSilence(server);
    // Three seconds are given to it, and a slow test machine some more.
    EXPECT_GE(watch.elapsed(), 2900);
    EXPECT_LT(watch.elapsed(), 10000);
}

TEST_F(WebFetchTest, GivesUpAServerThatSendsALetterNowAndThen)
{
    const LoopbackServer server([](QTcpSocket& socket, const QByteArray&) {
        socket.write("HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\nversion=");
        auto* const timer = new QTimer(&socket);
        QObject::connect(timer, &QTimer::timeout, &socket, [&socket] { socket.write("9"); });
        timer->start(100);
    });
    QElapsedTimer watch;
    watch.start();

    Get(server.Address());

    ExpectSilence(server);
    EXPECT_LT(watch.elapsed(), 10000);
}

TEST_F(WebFetchTest, ReadsASmallPartOfAGigabyteAndLeaves)
{
    std::unique_ptr<Flood> flood;
    const LoopbackServer server([&flood](QTcpSocket& socket, const QByteArray&) {
        socket.write("HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(kGigabyte) + "\r\n\r\n");
        flood = std::make_unique<Flood>(socket, QByteArray(64 * 1024, '9'), kGigabyte);
    });

    Get(server.Address());
    ExpectSilence(server);

    // What the connection itself holds on both sides, not the gigabyte.
    EXPECT_LT(flood->Accepted(), 32 * 1024 * 1024);
}

TEST_F(WebFetchTest, LeavesAGigabyteWhoseLengthIsNotTold)
{
    std::unique_ptr<Flood> flood;
    const QByteArray letters(64 * 1024, '9');
    const LoopbackServer server([&](QTcpSocket& socket, const QByteArray&) {
        socket.write("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n");
        flood = std::make_unique<Flood>(socket, "10000\r\n" + letters + "\r\n", kGigabyte);
    });

    Get(server.Address());
    ExpectSilence(server);

    EXPECT_LT(flood->Accepted(), 32 * 1024 * 1024);
}

TEST_F(WebFetchTest, LeavesASmallAnswerThatUnpacksToAGigabyte)
{
    // 64 MB of one letter, packed: a thousand times smaller than what it holds.
    QByteArray packed = qCompress(QByteArray(64 * 1024 * 1024, '9'), 9).sliced(4);
    const LoopbackServer server(Page("200 OK", packed, "Content-Encoding: deflate\r\nConnection: close\r\n"));
    Get(server.Address());
    ExpectSilence(server);
}

TEST_F(WebFetchTest, AcceptsAtMost64Kilobytes)
{
    const LoopbackServer fits(Page("200 OK", QByteArray(64 * 1024, ' ')));
    Get(fits.Address());
    ExpectAnswer(QByteArray(64 * 1024, ' '));
    answers.clear();

    const LoopbackServer isLonger(Page("200 OK", QByteArray(64 * 1024 + 1, ' '), "Connection: close\r\n"));
    Get(isLonger.Address());
    ExpectSilence(isLonger);
}

TEST_F(WebFetchTest, MayEndWhileAnAnswerIsAwaited)
{
    const LoopbackServer server([](QTcpSocket&, const QByteArray&) {});
    QElapsedTimer watch;
    {
        QtWebFetch ends;
        ends.Get(server.Address(), [](const QByteArray&) { FAIL(); });
        EXPECT_TRUE(QTest::qWaitFor([&server] { return !server.requests.isEmpty(); }, kPatienceMs));
        watch.start();
    }
    EXPECT_LT(watch.elapsed(), 1500);
    QTest::qWait(100);
}

TEST(WebSite, IsTheOneThatIsConfiguredAndOtherwiseNone)
{
    Environment environment;
    environment.Unset("STOIKAL_SITE");
    EXPECT_EQ(QtWebFetch().Site(), QString());

    environment.Set("STOIKAL_SITE", u"http://127.0.0.1:9"_s);
    EXPECT_EQ(QtWebFetch().Site(), u"http://127.0.0.1:9"_s);
}

} // namespace stoikal
