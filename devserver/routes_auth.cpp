#include "fields.h"
#include "routes.h"
#include "session_routes.h"
#include "sign_in_page.h"
#include "wire.h"

#include <QRegularExpression>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace pingwell::devserver {

namespace {

const auto callbackAddress = u"pingwell://auth/callback"_s;

/// What is wrong with the request for a code; empty when nothing is.
QString signInProblem(const Call &call)
{
    if (!fromRawValue<AuthProvider>(call.parameter(u"provider")))
        return u"This server doesn't offer that way of signing in."_s;
    if (call.query.queryItemValue(u"redirect_uri"_s, QUrl::FullyDecoded) != callbackAddress)
        return u"The redirect_uri must be %1."_s.arg(callbackAddress);
    if (call.query.queryItemValue(u"code_challenge_method"_s) != u"S256")
        return u"The code_challenge_method must be S256."_s;
    if (!looksLikeChallenge(call.query.queryItemValue(u"code_challenge"_s, QUrl::FullyDecoded)))
        return u"The code_challenge must be 43 characters of base64url."_s;
    return {};
}

Reply showSignIn(ServiceState &state, const Call &call)
{
    if (const QString problem = signInProblem(call); !problem.isEmpty())
        return page(400, signInProblemPage(problem));
    const AuthProvider provider = fromRawValue<AuthProvider>(call.parameter(u"provider")).value();
    const QString continueAddress = call.path + u"/continue?"_s + call.query.toString(QUrl::FullyEncoded);
    return page(200,
                signInPage(provider, state.account.name, continueAddress, callbackAddress + u"?error=access_denied"_s));
}

Reply continueSignIn(ServiceState &state, const Call &call)
{
    if (const QString problem = signInProblem(call); !problem.isEmpty())
        return page(400, signInProblemPage(problem));
    const AuthProvider provider = fromRawValue<AuthProvider>(call.parameter(u"provider")).value();
    const QString challenge = call.query.queryItemValue(u"code_challenge"_s, QUrl::FullyDecoded);
    return redirect(callbackAddress + u"?code="_s + state.sessions.handOutCode(challenge, provider, call.now));
}

Reply exchangeCode(ServiceState &state, const Call &call)
{
    const QString code = requiredText(call.body, u"code"_s);
    const QString verifier = requiredText(call.body, u"code_verifier"_s);
    const std::optional<AuthProvider> provider = state.sessions.redeemCode(code, verifier, call.now);
    if (!provider)
        throw Refusal{400, u"invalid_grant"_s, u"That sign-in is no longer valid. Try again."_s};
    state.account.provider = *provider;
    QJsonObject session = sessionToJson(state.account);
    session[u"token"_s] = state.sessions.open();
    return bare(session);
}

Reply listProviders(const Call &)
{
    QJsonArray words;
    for (const auto &provider : rawValues<AuthProvider>)
        words.append(QString(provider.word));
    return withData(QJsonObject{{u"providers"_s, words}});
}

Reply userData(ServiceState &state, const Call &)
{
    return bare(sessionToJson(state.account));
}

QString timeOfDay(const QJsonObject &body, const QString &key, const QString &current)
{
    static const QRegularExpression shape(u"^([01][0-9]|2[0-3]):[0-5][0-9]$"_s);
    const QString time = textField(body, key).value_or(current);
    if (!shape.match(time).hasMatch())
        throw badRequest(u"“%1” must be a time of day like 22:00."_s.arg(key));
    return time;
}

Reply saveSettings(ServiceState &state, const Call &call)
{
    NotificationSettings changed = state.settings;
    changed.quietFrom = timeOfDay(call.body, u"quietFrom"_s, changed.quietFrom);
    changed.quietTo = timeOfDay(call.body, u"quietTo"_s, changed.quietTo);
    changed.digest = flagField(call.body, u"digest"_s).value_or(changed.digest);
    changed.sound = flagField(call.body, u"sound"_s).value_or(changed.sound);
    state.settings = changed;
    return withData(toJson(changed));
}

/// The next sign-in finds a new account.
Reply deleteAccount(ServiceState &state, const Call &)
{
    state.sessions.endAll();
    state.startEmpty();
    return done(u"Your account and all its alerts have been deleted."_s);
}

} // namespace

void addAuthRoutes(Router &router, ServiceState &state)
{
    const auto addOpen = [&](const QString &method, const QString &path,
                             Reply (*handler)(ServiceState &, const Call &)) {
        router.add(method, path, Access::open, [&state, handler](const Call &call) { return handler(state, call); });
    };
    router.add(u"GET"_s, u"/auth/providers"_s, Access::open, listProviders);
    addOpen(u"POST"_s, u"/auth/native/token"_s, exchangeCode);

    SessionRoutes routes(router, state);
    routes.add(u"GET"_s, u"/auth/user-data"_s, userData);
    routes.add(u"PUT"_s, u"/auth/settings"_s, saveSettings);
    routes.add(u"DELETE"_s, u"/auth/account"_s, deleteAccount);

    // Last: the name of a provider stands where the addresses above have their own word.
    addOpen(u"GET"_s, u"/auth/{provider}"_s, showSignIn);
    addOpen(u"GET"_s, u"/auth/{provider}/continue"_s, continueSignIn);
}

} // namespace pingwell::devserver
