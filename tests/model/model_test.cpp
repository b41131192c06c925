#include "model/alert.h"
#include "model/workspace.h"

#include <QTest>

#include <functional>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

const Instant start{Seconds(1'700'000'000)};

Alert ask()
{
    Alert alert;
    alert.kind = AlertKind::ask;
    alert.actions = {u"Approve"_s, u"Deny"_s};
    alert.at = start;
    return alert;
}

QString told(const std::optional<ReplyState> &state)
{
    if (!state)
        return u"none"_s;
    if (const auto *waiting = std::get_if<Waiting>(&*state))
        return u"waiting "_s + QString::number(waiting->remaining);
    if (const auto *answered = std::get_if<Answered>(&*state))
        return u"answered "_s + answered->text;
    return u"timed out"_s;
}

template<typename... Enumerations>
QString wordsOf()
{
    QStringList words;
    const auto add = [&words](const auto &entries) {
        for (const auto &entry : entries)
            words << entry.word;
    };
    (add(rawValues<Enumerations>), ...);
    return words.join(u' ');
}

} // namespace

class ModelTest : public QObject
{
    Q_OBJECT

private slots:
    void replyState()
    {
        const auto said = [](const std::function<void(Alert &)> &change) {
            Alert alert = ask();
            change(alert);
            const QString state = told(alert.replyState(start));
            return alert.isWaiting(start) == state.startsWith(u"waiting") ? state : u"two states"_s;
        };
        QCOMPARE(said([](Alert &alert) { alert.kind = AlertKind::notify; }), u"none"_s);
        QCOMPARE(said([](Alert &) {}), u"waiting inf"_s);
        QCOMPARE(said([](Alert &alert) { alert.expiresAt = start + Seconds(1); }), u"waiting 1"_s);
        QCOMPARE(said([](Alert &alert) { alert.expiresAt = start; }), u"timed out"_s);
        // The service may end it before its deadline.
        QCOMPARE(said([](Alert &alert) { alert.expiresAt = start + Seconds(60), alert.timedOutAt = start; }),
                 u"timed out"_s);
        // An answer wins over every time-out.
        QCOMPARE(said([](Alert &alert) { alert.answer = u"Deny"_s, alert.timedOutAt = alert.expiresAt = start; }),
                 u"answered Deny"_s);
    }

    void validatedAnswer()
    {
        const QString full(1000, u'x');
        const std::tuple<AnswerType, QString, std::optional<QString>> rows[] = {
            {AnswerType::choice, u"Deny"_s, u"Deny"_s},
            {AnswerType::choice, u"deny"_s, {}},
            {AnswerType::choice, u" Deny"_s, {}},
            {AnswerType::text, u" \n yes\t "_s, u"yes"_s},
            {AnswerType::text, u" \n\t"_s, {}},
            {AnswerType::text, u' ' + full, full},
            // An emoji takes two of the limit.
            {AnswerType::text, full.chopped(1) + u"😀"_s, {}}};
        for (const auto &[type, proposed, expected] : rows) {
            Alert alert = ask();
            alert.answerType = type;
            QCOMPARE(alert.validatedAnswer(proposed), expected);
        }
    }

    void responseWindow()
    {
        const auto minutes = [](double seconds) {
            Alert alert = ask();
            alert.expiresAt = alert.at + Seconds(seconds);
            return *alert.responseWindowMinutes();
        };
        QCOMPARE(minutes(90), 2);
        QCOMPARE(minutes(29), 0);
        QCOMPARE(minutes(-90), -2);
        // The widest window that can travel.
        QCOMPARE(minutes(2 * maximumInstantMilliseconds / 1000), 288'000'000'000);
        QVERIFY(!ask().responseWindowMinutes());
    }

    /// On the wire and in the preferences.
    void rawWordsStay()
    {
        QCOMPARE(
            (wordsOf<Priority, AlertKind, AnswerType, TimeoutAction, WorkspaceRole, WorkspaceKind, MemberStatus,
                     DevicePlatform, AuthProvider, ServerKind, SidebarSection>()),
            u"silent normal high critical notify ask choice text expire default escalate owner admin member viewer "
            "personal team active invited android macos windows ios linux web google github cloud selfHosted "
            "inbox topics team settings"_s);
    }
};

QTEST_APPLESS_MAIN(ModelTest)
#include "model_test.moc"
