#include "screen_fixture.h"

#include <QColor>
#include <QQmlComponent>
#include <QTest>

#include <cmath>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

/// Relative luminance and contrast as in WCAG 2.1.
double luminance(const QColor &color)
{
    const auto linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrastBetween(const QColor &one, const QColor &other)
{
    const double a = luminance(one) + 0.05;
    const double b = luminance(other) + 0.05;
    return std::max(a, b) / std::min(a, b);
}

/// `ink` as it looks on an opaque ground.
QColor over(const QColor &ink, const QColor &ground)
{
    const auto mix = [&](double top, double below) { return float(top * ink.alphaF() + below * (1 - ink.alphaF())); };
    return QColor::fromRgbF(mix(ink.redF(), ground.redF()), mix(ink.greenF(), ground.greenF()),
                            mix(ink.blueF(), ground.blueF()));
}

} // namespace

class ThemeTest : public QObject
{
    Q_OBJECT

    FixedAppearance m_appearance;
    UiEngine m_engine{&m_appearance};
    std::unique_ptr<QObject> m_view;

    [[nodiscard]] QColor color(const QString &name) const
    {
        const QVariant value = m_view->property("theme").value<QObject *>()->property(qPrintable(name));
        return value.isValid() ? value.value<QColor>() : m_view->property(qPrintable(name)).value<QColor>();
    }

private slots:
    void initTestCase()
    {
        QQmlComponent component(&m_engine);
        component.setData("import QtQuick\n"
                          "import Pingwell\n"
                          "QtObject {\n"
                          "    readonly property QtObject theme: Theme\n"
                          "    property string priority\n"
                          "    readonly property color priorityText: Theme.priorityText(priority)\n"
                          "    readonly property color priorityFill: Theme.priorityFill(priority)\n"
                          "    readonly property color priorityDot: Theme.priorityDot(priority)\n"
                          "}",
                          {});
        m_view.reset(component.create());
        QVERIFY2(m_view, qPrintable(component.errorString()));
    }

    void contrast()
    {
        const std::tuple<QString, QString, double> rows[] = {
            {u"textPrimary textSecondary textReading"_s,
             u"window sidebar panel card field raised selection controlFill"_s, 4.5},
            {u"accent answered timedOut danger"_s, u"window panel card field selection"_s, 4.5},
            {u"timedOut textPrimary"_s, u"warningFill"_s, 4.5},
            {u"danger"_s, u"raised"_s, 4.5},
            {u"textOnAccent"_s, u"accentFill accentFillHover accentFillPressed"_s, 4.5},
            {u"textPrimary"_s, u"textSelection"_s, 4.5},
            {u"textTertiary"_s, u"window sidebar panel card field raised selection"_s, 3.0},
            {u"focusRing"_s, u"window sidebar panel card raised"_s, 3.0},
            {u"priorityText"_s, u"priorityFill"_s, 4.5},
            {u"priorityDot"_s, u"card"_s, 2.5}};
        for (const bool dark : {false, true}) {
            m_appearance.setDark(dark);
            for (const auto &priority : rawValues<Priority>) {
                m_view->setProperty("priority", QString(priority.word));
                for (const auto &[inks, grounds, atLeast] : rows) {
                    for (const QString &ink : inks.split(u' ')) {
                        for (const QString &ground : grounds.split(u' ')) {
                            QVERIFY(color(ink).isValid() && color(ground).isValid());
                            const double found = contrastBetween(over(color(ink), color(ground)), color(ground));
                            QVERIFY2(found >= atLeast, qPrintable(ink + u" on "_s + ground + QString::number(found)));
                        }
                    }
                }
            }
        }
    }

    void followsTheDesktopWhileOpen()
    {
        m_appearance.setDark(false);
        QVERIFY(luminance(color(u"window"_s)) > 0.5);
        m_appearance.setDark(true);
        QVERIFY(luminance(color(u"window"_s)) < 0.1);
    }
};

QTEST_MAIN(ThemeTest)
#include "theme_test.moc"
