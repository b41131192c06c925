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
    const auto mix = [&](double top, double below) { return top * ink.alphaF() + below * (1 - ink.alphaF()); };
    return QColor::fromRgbF(float(mix(ink.redF(), ground.redF())), float(mix(ink.greenF(), ground.greenF())),
                            float(mix(ink.blueF(), ground.blueF())));
}

} // namespace

class ThemeTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_engine = std::make_unique<UiEngine>(&m_appearance);
        QQmlComponent component(m_engine.get());
        component.setData("import QtQuick\n"
                          "import Pingwell\n"
                          "QtObject {\n"
                          "    readonly property QtObject theme: Theme\n"
                          "    property string priority\n"
                          "    readonly property color ink: Theme.priorityText(priority)\n"
                          "    readonly property color fill: Theme.priorityFill(priority)\n"
                          "    readonly property color dot: Theme.priorityDot(priority)\n"
                          "}",
                          {});
        m_view.reset(component.create());
        m_theme = m_view ? m_view->property("theme").value<QObject *>() : nullptr;
        QVERIFY(m_theme);
    }

    void contrast()
    {
        struct Pairing
        {
            const char *inks;
            const char *grounds;
            double atLeast;
        };
        const Pairing pairings[] = {
            {"textPrimary textSecondary textReading", "window sidebar panel card field raised selection controlFill",
             4.5},
            {"accent answered timedOut danger", "window panel card field selection", 4.5},
            {"timedOut textPrimary", "warningFill", 4.5},
            {"danger", "raised", 4.5},
            {"textOnAccent", "accentFill accentFillHover accentFillPressed", 4.5},
            {"textPrimary", "textSelection", 4.5},
            {"textTertiary", "window sidebar panel card field raised selection", 3.0},
            {"focusRing", "window sidebar panel card raised", 3.0},
        };
        for (const bool dark : {false, true}) {
            m_appearance.setDark(dark);
            for (const Pairing &pairing : pairings) {
                for (const QByteArray &ink : QByteArray(pairing.inks).split(' ')) {
                    for (const QByteArray &ground : QByteArray(pairing.grounds).split(' '))
                        compare(color(ink), color(ground), pairing.atLeast, ink + ' ' + ground);
                }
            }
            for (const auto &priority : rawValues<Priority>) {
                m_view->setProperty("priority", QString(priority.word));
                const auto shown = [this](const char *name) { return m_view->property(name).value<QColor>(); };
                compare(shown("ink"), shown("fill"), 4.5, "priority's ink");
                compare(shown("dot"), color("card"), 2.5, "priority's dot");
            }
        }
    }

    void followsTheDesktopWhileOpen()
    {
        m_appearance.setDark(false);
        QVERIFY(luminance(color("window")) > 0.5);
        m_appearance.setDark(true);
        QVERIFY(luminance(color("window")) < 0.1);
        QCOMPARE(m_theme->property("durationShort").toInt(), 0);
    }

private:
    [[nodiscard]] QColor color(const QByteArray &name) const
    {
        const QVariant value = m_theme->property(name);
        if (!value.isValid())
            QTest::qFail(QByteArray("no such colour: " + name), __FILE__, __LINE__);
        return value.value<QColor>();
    }

    void compare(const QColor &ink, const QColor &ground, double atLeast, QByteArray what) const
    {
        const double found = contrastBetween(over(ink, ground), ground);
        what += (m_appearance.isDark() ? ", dark: " : ", light: ") + QByteArray::number(found);
        if (found < atLeast)
            QTest::qFail(what, __FILE__, __LINE__);
    }

    FixedAppearance m_appearance;
    std::unique_ptr<UiEngine> m_engine;
    std::unique_ptr<QObject> m_view;
    QObject *m_theme = nullptr;
};

QTEST_MAIN(ThemeTest)
#include "theme_test.moc"
