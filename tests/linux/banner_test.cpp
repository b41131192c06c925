#include "linux/notifications/banner.h"
#include "linux/notifications/banner_actions.h"
#include "linux/notifications/banner_message.h"

#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

NotificationServer server(const QString &name, bool readsMarkup = false, bool takesReplies = false)
{
    return {u":1.1"_s, name, true, readsMarkup, takesReplies, {}};
}

QList<NotificationAction> choices(const QStringList &titles)
{
    QList<NotificationAction> actions;
    for (const QString &title : titles)
        actions.append({u"answer.%1"_s.arg(actions.size()), title, std::nullopt});
    return actions;
}

QString written(const QList<BannerAction> &actions)
{
    QStringList texts;
    for (const BannerAction &action : actions)
        texts << action.key + u'=' + action.label;
    return texts.join(u' ');
}

} // namespace

class BannerTest : public QObject
{
    Q_OBJECT

private slots:
    void fitting()
    {
        const QStringList c{u"C0"_s, u"C1"_s, u"C2"_s, u"C3"_s, u"C4"_s};
        const QString gnome = u"gnome-shell"_s, plasma = u"Plasma"_s;
        const QString three = u"default=Open answer.0=C0 answer.1=C1 answer.2=C2"_s;
        const QString readElsewhere = u"default=Open more=More…"_s, x30(30, u'x'), x40(40, u'x');
        const std::tuple<const char *, QString, QStringList, QString> rows[] = {
            {"GNOME, all fit", gnome, c.first(3), three},
            {"GNOME, one too many", gnome, c.first(4), u"default=Open answer.0=C0 answer.1=C1 more=More…"_s},
            {"Plasma, all fit", plasma, c.first(4), three + u" answer.3=C3"_s},
            {"Plasma, one too many", plasma, c, three + u" more=More…"_s},
            {"a list", u"dunst"_s, c, three + u" answer.3=C3 answer.4=C4"_s},
            {"a row, one too many", u"Xfce Notify Daemon"_s, c, three + u" more=More…"_s},
            {"a row, too wide",
             u"another"_s,
             {x30, u"b"_s, u"c"_s, u"d"_s},
             u"default=Open answer.0=%1 answer.1=b more=More…"_s.arg(x30)},
            {"a row with room for one", u"another"_s, {x30 + u'y', x30, u"c"_s}, readElsewhere},
            {"cleaned", u"another"_s, {u"a\nb\u202E"_s}, u"default=Open answer.0=a b"_s},
            {"cut", gnome, {x40 + u'x', u"No"_s}, readElsewhere},
            {"same beginnings", gnome, {x40 + u'y', x40 + u'z'}, readElsewhere},
            {"blank", gnome, {u"Yes"_s, u"\u0001 "_s}, readElsewhere},
            {"same looks", gnome, {u"Delete"_s, u"Del\u200Bete"_s}, readElsewhere},
            {"same looks, with a joiner", gnome, {u"Stop"_s, u"Sto\u200Dp"_s}, readElsewhere},
            {"called as the program's own button", gnome, {u"No"_s, u"More\u2026"_s}, readElsewhere},
            {"same looks, written otherwise", gnome, {u"Löschen"_s, u"Lo\u0308schen"_s}, readElsewhere},
            {"same as one without room", gnome, {u"a"_s, u"b"_s, u"c"_s, u"a "_s}, readElsewhere},
            {"a long one without room",
             gnome,
             {u"a"_s, u"b"_s, u"c"_s, QString(99, u'x')},
             u"default=Open answer.0=a answer.1=b more=More…"_s}};
        for (const auto &[name, desktop, titles, fitted] : rows) {
            QVERIFY2(written(fitActions(choices(titles), server(desktop))) == fitted, name);
            NotificationServer plain = server(desktop);
            plain.drawsActions = false;
            QVERIFY2(fitActions(choices(titles), plain).isEmpty(), "buttons promised where there are none");
        }
    }

    void replying()
    {
        const QList<NotificationAction> actions{{u"reply"_s, u"Reply"_s, NotificationTextInput{u"Send"_s, u"Why?"_s}}};
        const NotificationServer field = server(u"Plasma"_s, false, true);
        QCOMPARE(written(fitActions(actions, field)), u"default=Open inline-reply=Reply"_s);
        const QVariantMap hints = showBannerCall({}, actions, field, 0).arguments().at(6).toMap();
        QCOMPARE(hints.value(u"x-kde-reply-placeholder-text"_s).toString(), u"Why?"_s);
        QCOMPARE(hints.value(u"x-kde-reply-submit-button-text"_s).toString(), u"Send"_s);
        QCOMPARE(written(fitActions(actions, server(u"Plasma"_s))), u"default=Open reply=Reply"_s);
    }

    void presses()
    {
        const QStringList offered{u"default"_s, u"more"_s, u"answer.0"_s, u"reply"_s, u"inline-reply"_s};
        const QStringList meant{u"default"_s, u"default"_s, u"answer.0"_s, u"reply"_s, u"-"_s};
        for (qsizetype key = 0; key < offered.size(); ++key)
            QCOMPARE(actionIdentifierOf(offered.at(key), offered).value_or(u"-"_s), meant.at(key));
        QVERIFY2(!actionIdentifierOf(u"answer.1"_s, offered), "a choice that was never offered");
    }

    /// In a list that is filled with more of the first kind, the last kind is the one that is missed least.
    void roomForOneMore()
    {
        const auto givenUp = [](const QStringList &banners) {
            BannerList list;
            std::optional<Banner> banner;
            for (uint count = 0; count < 300 && !banner; banner = list.makeRoom()) {
                const QString what = banners.value(count, banners.constFirst());
                Banner &next = list.obtain(u"%1 %2"_s.arg(count).arg(what));
                list.number(next, u":1.1"_s, ++count);
                next.takesAnswers = what.startsWith(u"question");
                next.isSending = what.endsWith(u"sending");
                next.stage = what.endsWith(u"expired")  ? Banner::Stage::expired
                             : what.endsWith(u"closed") ? Banner::Stage::closed
                                                        : Banner::Stage::shown;
            }
            return banner.value_or(Banner()).requestIdentifier;
        };
        const QStringList all{u"question"_s, u"question expired"_s, u"notice"_s, u"notice expired"_s,
                              u"question closed"_s};
        for (qsizetype least = 0; least < all.size(); ++least)
            QCOMPARE(givenUp(all.first(least + 1)), u"%1 %2"_s.arg(least).arg(all.at(least)));
        QVERIFY2(givenUp({u"notice sending"_s}).isEmpty(), "it has no number to close it by");
    }

    void aNumberIsTheLastOnesAlone()
    {
        BannerList list;
        list.number(list.obtain(u"first"_s), u":1.1"_s, 7);
        list.number(list.obtain(u"second"_s), u":1.1"_s, 7);
        QCOMPARE(list.find(u":1.1"_s, 7)->requestIdentifier, u"second"_s);
    }

    void body()
    {
        NotificationContent content;
        const auto shown = [&](const QString &subtitle, const QString &body, bool markup) {
            content.subtitle = subtitle;
            content.body = body;
            return bannerBody(content, server(u"another"_s, markup));
        };
        const QString sub = u"App · #t"_s;
        QCOMPARE(shown(sub, u"<b>&\"</b>"_s, true), u"App · #t\n&lt;b&gt;&amp;&quot;&lt;/b&gt;"_s);
        QCOMPARE(shown(sub, u"1 < 2 & 3\n"_s, false), u"App · #t\n1 < 2 & 3"_s);
        QCOMPARE(shown(u"App\nFake · #t"_s, u"x"_s, false), u"App Fake · #t\nx"_s);
        QCOMPARE(shown(sub, u"a\u202Eb\u0007"_s, false), u"App · #t\nab"_s);
        const QString cut = shown(sub, QString(1'000'000, u'&'), true);
        QVERIFY2(cut.size() < 5'000 && cut.endsWith(u"&amp;…"_s), "an entity was cut in two");
    }

    void loudness()
    {
        for (const auto &[sound, timeSensitive] : {std::pair(false, false), {true, false}, {true, true}}) {
            NotificationContent content;
            content.sound = sound;
            content.timeSensitive = timeSensitive;
            const QVariantList arguments = showBannerCall(content, {}, server(u"another"_s), 0).arguments();
            const QVariantMap hints = arguments.at(6).toMap();
            QCOMPARE(hints.contains(u"sound-name"_s), sound);
            QCOMPARE(hints.value(u"suppress-sound"_s).toBool(), !sound);
            QCOMPARE(hints.value(u"urgency"_s).toInt(), timeSensitive ? 2 : 1);
            QCOMPARE(arguments.at(7).toInt(), timeSensitive ? 0 : -1);
        }
    }
};

QTEST_GUILESS_MAIN(BannerTest)
#include "banner_test.moc"
