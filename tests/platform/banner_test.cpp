#include "platform/banner_actions.h"
#include "platform/banner_message.h"

#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

NotificationServer server(const QString &name, bool readsMarkup = false, bool takesReplies = false)
{
    return {u":1.1"_s, name, true, readsMarkup, takesReplies};
}

QList<NotificationAction> choices(int count)
{
    QList<NotificationAction> actions;
    for (int index = 0; index < count; ++index)
        actions.append({u"answer.%1"_s.arg(index), u"C%1"_s.arg(index), std::nullopt});
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
    void fitting_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("fitted");
        const QString three = u"default=Open answer.0=C0 answer.1=C1 answer.2=C2"_s;
        QTest::newRow("GNOME, all fit") << u"gnome-shell"_s << 3 << three;
        QTest::newRow("GNOME, one too many")
            << u"gnome-shell"_s << 4 << u"default=Open answer.0=C0 answer.1=C1 more=More…"_s;
        QTest::newRow("Plasma, all fit") << u"Plasma"_s << 4 << QString(three + u" answer.3=C3"_s);
        QTest::newRow("Plasma, one too many") << u"Plasma"_s << 5 << QString(three + u" more=More…"_s);
    }

    void fitting()
    {
        QFETCH(QString, name);
        QFETCH(int, count);
        QTEST(written(fitActions(choices(count), server(name))), "fitted");
        NotificationServer plain = server(name);
        plain.drawsActions = false;
        QVERIFY2(fitActions(choices(count), plain).isEmpty(), "buttons promised where there are none");
    }

    void keepsHostileChoicesInBounds()
    {
        QCOMPARE(fitActions(choices(5'000), server(u"another"_s)).constLast().key, u"more"_s);
        const QList<NotificationAction> hostile{{u"answer.0"_s, u"a\nb\u202E"_s, std::nullopt},
                                                {u"answer.1"_s, QString(300, u'x'), std::nullopt},
                                                {u"answer.2"_s, u"\u0001"_s, std::nullopt}};
        const QList<BannerAction> fitted = fitActions(hostile, server(u"another"_s));
        QCOMPARE(fitted.at(1).label, u"a b"_s);
        QVERIFY(fitted.at(2).label.endsWith(u'…') && fitted.at(2).label.size() < 50);
        QCOMPARE(fitted.at(3).label, u"Choice 3"_s);
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
        QCOMPARE(shown(sub, u"1 < 2 & 3"_s, false), u"App · #t\n1 < 2 & 3"_s);
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
