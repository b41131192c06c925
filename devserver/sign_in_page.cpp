#include "sign_in_page.h"

using namespace Qt::StringLiterals;

namespace pingwell::devserver {

namespace {

QString framed(const QString &content)
{
    return uR"(<!doctype html>
<html lang="en"><head><meta charset="utf-8"><title>Sign in to Pingwell</title>
<style>
body { font: 16px/1.5 sans-serif; max-width: 24rem; margin: 6rem auto; text-align: center; color: #1d2330; }
a { display: block; margin: 1rem 0; padding: .7rem; border-radius: .6rem; text-decoration: none; }
a.go { background: #3556d8; color: #fff; } a.cancel { color: #56607a; }
</style></head><body><h1>Pingwell</h1>
%1
</body></html>
)"_s.arg(content);
}

} // namespace

QString signInPage(AuthProvider provider, const QString &name, const QString &continueAddress,
                   const QString &cancelAddress)
{
    const QString company = provider == AuthProvider::google ? u"Google"_s : u"GitHub"_s;
    return framed(u"<p>This stands in for %1’s sign-in page.</p>\n"
                  "<a class=\"go\" href=\"%3\">Continue as %2</a>\n<a class=\"cancel\" href=\"%4\">Cancel</a>"_s.arg(
                      company, name.toHtmlEscaped(), continueAddress.toHtmlEscaped(), cancelAddress.toHtmlEscaped()));
}

QString signInProblemPage(const QString &problem)
{
    return framed(u"<p>%1</p>"_s.arg(problem.toHtmlEscaped()));
}

} // namespace pingwell::devserver
