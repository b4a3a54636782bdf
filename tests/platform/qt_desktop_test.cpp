#include "platform/qt_platform.h"

#include "support/environment.h"
#include "support/ordinary_user.h"
#include "support/qt_printers.h"
#include "support/window_driver.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QFile>
#include <QTextBrowser>
#include <QUrl>
#include <chrono>
#include <ctime>
#include <gtest/gtest.h>
#include <langinfo.h>
#include <locale.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// A line of the machine's list of accounts: "list:x:38:38:Mailing List Manager:/var/list:/bin/sh".
struct Account {
    QString login;
    uid_t number = 0;
    QString entry; ///< real name, room and telephones, parted by commas

    QString RealName() const { return entry.section(u',', 0, 0); }
};

QList<Account> AccountsOfTheMachine()
{
    QFile file(u"/etc/passwd"_s);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QList<Account> accounts;
    const QStringList lines = QString::fromLocal8Bit(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    for (const QString& line : lines) {
        const QStringList fields = line.split(u':');
        accounts << Account{fields.at(0), fields.at(2).toUInt(), fields.at(4)};
    }
    return accounts;
}

/// The first account that passes, else the own one. Only the superuser becomes
/// the user of another.
template <typename Passes>
std::optional<Account> AccountWhere(const Passes& passes)
{
    std::optional<Account> own;
    const QList<Account> accounts = AccountsOfTheMachine();
    for (const Account& account : accounts) {
        if (geteuid() == 0 && passes(account))
            return account;
        if (geteuid() == account.number)
            own = account;
    }
    return own;
}

/// The sign that the C library has for the environment's country.
QChar SignOfTheEnvironment()
{
    const locale_t country = ::newlocale(LC_ALL_MASK, "", nullptr);
    const QString sign = QString::fromLocal8Bit(::nl_langinfo_l(RADIXCHAR, country));
    ::freelocale(country);
    return sign.front();
}

} // namespace

TEST(QtUserAccount, RealNameIsWhatStandsInTheAccountBesideItsLogin)
{
    const auto account
        = AccountWhere([](const Account& some) { return some.RealName() != some.login && some.number != 0; });
    ASSERT_TRUE(account.has_value());
    const AsOrdinaryUser user(account->number);
    ASSERT_TRUE(user.IsOrdinary());

    EXPECT_EQ(QtUserAccount().RealName(), account->RealName());
}

TEST(QtUserAccount, RealNameEndsBeforeTheRoomAndTheTelephones)
{
    const auto account = AccountWhere([](const Account& some) { return some.entry.contains(u','); });
    ASSERT_TRUE(account.has_value());
    const AsOrdinaryUser user(account->number);
    ASSERT_TRUE(user.IsOrdinary());

    EXPECT_EQ(QtUserAccount().RealName(), account->RealName());
    EXPECT_FALSE(QtUserAccount().RealName().contains(u','));
}

TEST(QtUserAccount, WithoutAnAccountHasNoName)
{
    constexpr uid_t kNobodys = 4242424;
    if (geteuid() != 0)
        GTEST_SKIP() << "only the superuser becomes a user without an account";
    Environment environment;
    environment.Unset("STOIKAL_USER");
    QString login;
    QString realName;
    {
        const AsOrdinaryUser user(kNobodys);
        ASSERT_TRUE(user.IsOrdinary());
        login = QtUserAccount().LoginName();
        realName = QtUserAccount().RealName();
    }

    EXPECT_EQ(login, QString());
    EXPECT_EQ(realName, QString());
}

TEST(QtRegional, HasTheDecimalSignOfTheEnvironmentsCountry)
{
    EXPECT_EQ(QtRegional().DecimalSeparator(), SignOfTheEnvironment());
}

TEST(QtScreen, IsAsWideAsAWindowThatFillsIt)
{
    QWidget window;
    window.showFullScreen();
    Settle();

    EXPECT_EQ(QtScreen().Width(), window.width());
}

TEST(QtScreen, WorkAreaIsWhatALargestWindowTakes)
{
    QWidget window;
    window.showMaximized();
    Settle();

    EXPECT_EQ(QtScreen().WorkArea(), window.frameGeometry());
}

TEST(QtBrowser, CountsAsOnlineWhereNothingTellsOfTheNetwork)
{
    // What tells of the network is a plug-in, and there are none.
    const QStringList before = QCoreApplication::libraryPaths();
    QCoreApplication::setLibraryPaths({});

    const bool isOnline = QtBrowser().IsOnline();

    QCoreApplication::setLibraryPaths(before);
    EXPECT_TRUE(isOnline);
}

TEST(QtBrowser, HandsTheAddressToTheDesktop)
{
    // The browser of the test is reached by a scheme of its own.
    QTextBrowser desktop;
    QList<QUrl> opened;
    QObject::connect(&desktop, &QTextBrowser::anchorClicked, [&opened](const QUrl& url) { opened << url; });
    QDesktopServices::setUrlHandler(u"stoikal-test"_s, &desktop, "anchorClicked");

    const bool isOpened = QtBrowser().Open(u"stoikal-test://maison/page?a=1&b=2"_s);

    QDesktopServices::unsetUrlHandler(u"stoikal-test"_s);
    EXPECT_TRUE(isOpened);
    EXPECT_EQ(opened, QList<QUrl>{QUrl(u"stoikal-test://maison/page?a=1&b=2"_s)});
}

TEST(QtBrowser, TellsThatTheDesktopOpensNoAddress)
{
    // The desktop of the tests opens nothing.
    EXPECT_FALSE(QtBrowser().Open(u"http://localhost/"_s));
}

TEST(QtClock, CountsAsTheTimeGoes)
{
    using Steady = std::chrono::steady_clock;
    const QtClock clock;
    const auto outerBegin = Steady::now();
    const std::int64_t first = clock.Counter();
    const auto innerBegin = Steady::now();
    while (Steady::now() - innerBegin < std::chrono::milliseconds(5)) { }
    const auto innerEnd = Steady::now();
    const std::int64_t last = clock.Counter();
    const auto outerEnd = Steady::now();

    const std::chrono::duration<double> inner = innerEnd - innerBegin;
    const std::chrono::duration<double> outer = outerEnd - outerBegin;
    const double counted = static_cast<double>(last - first) / static_cast<double>(clock.CountsPerSecond());
    EXPECT_GE(counted, inner.count() - 1e-6);
    EXPECT_LE(counted, outer.count() + 1e-6);
}

TEST(QtClock, HasTheDateAndTimeOfThePlace)
{
    const std::time_t before = std::time(nullptr);
    const QDateTime now = QtClock().Now();
    const std::time_t after = std::time(nullptr);

    EXPECT_GE(now.toSecsSinceEpoch(), before - 1);
    EXPECT_LE(now.toSecsSinceEpoch(), after + 1);
    EXPECT_EQ(now.timeSpec(), Qt::LocalTime);
}

TEST(QtRandomness, FillsZeroToOneEvenlyAndOtherwiseEachTime)
{
    QtRandomness one;
    QtRandomness other;
    constexpr int kDraws = 10000;
    double sum = 0;
    int equal = 0;
    for (int i = 0; i < kDraws; ++i) {
        const double x = one.Uniform();
        ASSERT_GE(x, 0);
        ASSERT_LT(x, 1);
        sum += x;
        equal += x == other.Uniform() ? 1 : 0;
    }

    // The mean of 10000 spreads by 0.289 / 100 = 0.003 about a half.
    EXPECT_NEAR(sum / kDraws, 0.5, 0.03);
    EXPECT_LT(equal, 10);
}

} // namespace stoikal
