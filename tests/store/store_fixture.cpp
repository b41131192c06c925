#include "store_fixture.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QTest>
#include <QThreadPool>

namespace pingwell {

using namespace Qt::StringLiterals;

namespace {

QJsonObject with(QJsonObject base, const QJsonObject &more)
{
    for (auto entry = more.begin(); entry != more.end(); ++entry)
        base.insert(entry.key(), entry.value());
    return base;
}

} // namespace

QJsonObject alertJSON(const QString &id, double secondsAgo, const QJsonObject &more)
{
    return with({{u"id"_s, id},
                 {u"workspaceId"_s, u"w1"_s},
                 {u"title"_s, QString(u"Alert "_s + id)},
                 {u"at"_s, millisecondsFromInstant(testStart - Seconds(secondsAgo))}},
                more);
}

QJsonObject askJSON(const QString &id, double secondsAgo, const QJsonObject &more)
{
    const QJsonObject ask{{u"kind"_s, u"ask"_s}, {u"actions"_s, QJsonArray{u"Approve"_s, u"Deny"_s}}};
    return alertJSON(id, secondsAgo, with(ask, more));
}

Alert noticeOf(const QString &id, double secondsAgo, const QString &workspace, const QString &topic)
{
    Alert alert;
    alert.id = id;
    alert.workspaceId = workspace;
    alert.topic = topic;
    alert.at = testStart - Seconds(secondsAgo);
    return alert;
}

QJsonObject workspaceJSON(const QString &id, const QString &role)
{
    return {{u"id"_s, id}, {u"name"_s, QString(u"Workspace "_s + id)}, {u"kind"_s, u"team"_s}, {u"role"_s, role}};
}

QByteArray DashboardJSON::body() const
{
    const QJsonObject data{
        {u"workspaces"_s, workspaces},
        {u"members"_s, members},
        {u"devices"_s, devices},
        {u"topics"_s, topics},
        {u"alerts"_s, alerts},
        {u"settings"_s, settings},
        {u"plan"_s, QJsonObject{{u"name"_s, u"Pro"_s}}},
    };
    return QJsonDocument(data).toJson(QJsonDocument::Compact);
}

DashboardJSON dashboardOf(const QJsonArray &alerts)
{
    return {.alerts = alerts};
}

StoreFixture::StoreFixture()
{
    backend->tokenStore = tokens;
    backend->transport = transport;
    backend->notifier = notifier;
    backend->baseURLOverride = QUrl(u"https://pingwell.test"_s);
    backend->deviceName = u"Desk"_s;
    backend->appVersion = u"1.2"_s;
    transport->always("GET", "/auth/providers", ScriptedAnswer::noAnswer());
}

StoreFixture::~StoreFixture()
{
    while (transport->release()) {
    }
    settle();
    store.reset();
    clock.reset();
    settle();
}

void StoreFixture::start()
{
    store = std::make_unique<AppStore>(SeedData(), false, preferences, clock->now(), backend, clock);
}

void StoreFixture::startWith(const DashboardJSON &dashboard)
{
    start();
    refreshWith(dashboard);
    QVERIFY(store->hasLoaded());
}

void StoreFixture::startLoopWith(const DashboardJSON &dashboard, const QByteArray &invitations)
{
    letLoopsFail();
    transport->always("GET", "/dashboard", ScriptedAnswer::data(dashboard.body()));
    transport->always("GET", "/invites", ScriptedAnswer::data(invitations));
    start();
    store->startSync();
    settle();
}

void StoreFixture::refreshWith(const DashboardJSON &dashboard)
{
    refreshWith(ScriptedAnswer::data(dashboard.body()));
}

void StoreFixture::refreshWith(const ScriptedAnswer &answer)
{
    transport->plan("GET", "/dashboard", answer);
    store->refresh();
    settle();
}

void StoreFixture::signInWith(const std::shared_ptr<WebAuthenticator> &browser) const
{
    backend->authenticate = [browser](QUrl url, QString scheme) { return browser->authenticate(url, scheme); };
    backend->nextCallback = [browser] { return browser->nextCallback(); };
    backend->cancelAuthentication = [browser] { browser->cancel(); };
}

void StoreFixture::letLoopsFail()
{
    for (const char *path : {"/dashboard", "/auth/user-data", "/invites"})
        transport->always("GET", path, ScriptedAnswer::noAnswer());
    transport->always("POST", "/devices", ScriptedAnswer::noAnswer());
}

void StoreFixture::changeSession()
{
    store->signOut();
    store->persistSession(u"token-2"_s, QUrl(u"https://pingwell.test"_s), Account());
}

void StoreFixture::release(const QByteArray &method, const QByteArray &path)
{
    QVERIFY(transport->release(method, path));
    settle();
}

void StoreFixture::settle()
{
    // An answer passes through the event loop and the thread pool a bounded number of times.
    for (int turn = 0; turn < 8; ++turn) {
        QThreadPool::globalInstance()->waitForDone();
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
}

Alert StoreFixture::alert(const QString &id) const
{
    return store->alertWithID(id).value_or(Alert());
}

} // namespace pingwell
