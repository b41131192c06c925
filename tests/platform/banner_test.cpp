#include "platform/banner_actions.h"
#include "platform/banner_message.h"

#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

NotificationServer server(const QString &name)
{
    return {.owner = u":1.1"_s, .name = name, .drawsActions = true, .readsMarkup = false, .takesReplies = false};
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
        QTest::newRow("GNOME, a notice") << u"gnome-shell"_s << 0 << u"default=Open"_s;
        QTest::newRow("GNOME, all fit") << u"gnome-shell"_s << 3 << three;
        QTest::newRow("GNOME, one too many")
            << u"gnome-shell"_s << 4 << u"default=Open answer.0=C0 answer.1=C1 more=More…"_s;
        QTest::newRow("Plasma, all fit") << u"Plasma"_s << 4 << QString(three + u" answer.3=C3"_s);
        QTest::newRow("Plasma, one too many") << u"Plasma"_s << 5 << QString(three + u" more=More…"_s);
        QTest::newRow("another") << u"Xfce Notify Daemon"_s << 6
                                 << QString(three + u" answer.3=C3 answer.4=C4 answer.5=C5"_s);
    }

    void fitting()
    {
        QFETCH(QString, name);
        QFETCH(int, count);
        QTEST(written(fitActions(choices(count), server(name))), "fitted");
    }

    void promisesNoButtonsWhereThereAreNone()
    {
        NotificationServer plain = server(u"Plasma"_s);
        plain.drawsActions = false;
        QVERIFY(fitActions(choices(2), plain).isEmpty());
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

    void replying_data()
    {
        QTest::addColumn<bool>("takesReplies");
        QTest::addColumn<QString>("fitted");
        QTest::addColumn<QString>("placeholder");
        QTest::newRow("field") << true << u"default=Open inline-reply=Reply"_s << u"Why?"_s;
        QTest::newRow("no field") << false << u"default=Open reply=Reply"_s << QString();
    }

    void replying()
    {
        QFETCH(bool, takesReplies);
        NotificationServer at = server(u"Plasma"_s);
        at.takesReplies = takesReplies;
        const NotificationTextInput input{u"Send"_s, u"Why?"_s};
        const QList<NotificationAction> actions{{u"reply"_s, u"Reply"_s, input}};
        QTEST(written(fitActions(actions, at)), "fitted");
        const QVariantMap hints = showBannerCall({}, actions, at, 0).arguments().at(6).toMap();
        QTEST(hints.value(u"x-kde-reply-placeholder-text"_s).toString(), "placeholder");
        QCOMPARE(hints.value(u"x-kde-reply-submit-button-text"_s).toString(), takesReplies ? u"Send"_s : QString());
    }

    void meaning_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("identifier");
        QTest::newRow("click") << u"default"_s << u"default"_s;
        QTest::newRow("more") << u"more"_s << u"default"_s;
        QTest::newRow("field") << u"inline-reply"_s << u"reply"_s;
        QTest::newRow("no field") << u"reply"_s << u"reply"_s;
        QTest::newRow("choice") << u"answer.2"_s << u"answer.2"_s;
        QTest::newRow("the server's own") << u"settings"_s << QString();
    }

    void meaning()
    {
        QFETCH(QString, key);
        QTEST(actionIdentifierOf(key).value_or(QString()), "identifier");
    }

    void body_data()
    {
        QTest::addColumn<QString>("subtitle");
        QTest::addColumn<QString>("body");
        QTest::addColumn<bool>("markup");
        QTest::addColumn<QString>("shown");
        const QString sub = u"App · #t"_s;
        QTest::newRow("two lines") << sub << u"Ready."_s << false << u"App · #t\nReady."_s;
        QTest::newRow("nothing more to say") << sub << QString() << false << sub;
        QTest::newRow("markup is text") << sub << u"<b>&\"</b>"_s << true
                                        << u"App · #t\n&lt;b&gt;&amp;&quot;&lt;/b&gt;"_s;
        QTest::newRow("nobody reads markup") << sub << u"1 < 2 & 3"_s << false << u"App · #t\n1 < 2 & 3"_s;
        QTest::newRow("no line smuggled in") << u"App\nFake · #t"_s << u"x"_s << false << u"App Fake · #t\nx"_s;
        QTest::newRow("nothing reordered") << sub << u"a\u202Eb\u0007"_s << false << u"App · #t\nab"_s;
    }

    void body()
    {
        QFETCH(QString, subtitle);
        QFETCH(QString, body);
        QFETCH(bool, markup);
        NotificationServer at = server(u"another"_s);
        at.readsMarkup = markup;
        NotificationContent content;
        content.subtitle = subtitle;
        content.body = body;
        QTEST(bannerBody(content, at), "shown");
    }

    void isCutBeforeItIsEscaped()
    {
        NotificationServer at = server(u"another"_s);
        at.readsMarkup = true;
        NotificationContent content;
        content.body = QString(1'000'000, u'&');
        const QString shown = bannerBody(content, at);
        QVERIFY(shown.size() < 5'000);
        QVERIFY2(shown.endsWith(u"&amp;…"_s), "an entity was cut in two");
    }

    void loudness_data()
    {
        QTest::addColumn<bool>("sound");
        QTest::addColumn<bool>("timeSensitive");
        QTest::addColumn<int>("urgency");
        QTest::addColumn<int>("timeout");
        QTest::newRow("quiet") << false << false << 1 << -1;
        QTest::newRow("sounds") << true << false << 1 << -1;
        QTest::newRow("critical") << true << true << 2 << 0;
    }

    void loudness()
    {
        QFETCH(bool, sound);
        QFETCH(bool, timeSensitive);
        NotificationContent content;
        content.sound = sound;
        content.timeSensitive = timeSensitive;
        const QVariantList arguments = showBannerCall(content, {}, server(u"another"_s), 0).arguments();
        const QVariantMap hints = arguments.at(6).toMap();
        QCOMPARE(hints.contains(u"sound-name"_s), sound);
        QCOMPARE(hints.value(u"suppress-sound"_s).toBool(), !sound);
        QTEST(hints.value(u"urgency"_s).toInt(), "urgency");
        QCOMPARE(hints.value(u"urgency"_s).typeId(), static_cast<int>(QMetaType::UChar));
        QTEST(arguments.at(7).toInt(), "timeout");
    }
};

QTEST_GUILESS_MAIN(BannerTest)
#include "banner_test.moc"
