#include "screen_fixture.h"

#include <QColor>
#include <QQmlComponent>
#include <QTest>

#include <cmath>

using namespace pingwell;

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

    void contrast_data()
    {
        QTest::addColumn<QStringList>("inks");
        QTest::addColumn<QStringList>("grounds");
        QTest::addColumn<double>("atLeast");
        const auto words = [](const char *text) { return QString::fromLatin1(text).split(u' '); };
        QTest::newRow("reading") << words("textPrimary textSecondary textReading")
                                 << words("window sidebar panel card field raised selection controlFill") << 4.5;
        QTest::newRow("meaning") << words("accent answered timedOut danger")
                                 << words("window panel card field selection") << 4.5;
        QTest::newRow("banner") << words("timedOut textPrimary") << words("warningFill") << 4.5;
        QTest::newRow("menu") << words("danger") << words("raised") << 4.5;
        QTest::newRow("on the accent") << words("textOnAccent") << words("accentFill accentFillHover accentFillPressed")
                                       << 4.5;
        QTest::newRow("in a selection") << words("textPrimary") << words("textSelection") << 4.5;
        QTest::newRow("tertiary") << words("textTertiary") << words("window sidebar panel card field raised selection")
                                  << 3.0;
        QTest::newRow("focus ring") << words("focusRing") << words("window sidebar panel card raised") << 3.0;
    }

    void contrast()
    {
        QFETCH(QStringList, inks);
        QFETCH(QStringList, grounds);
        QFETCH(double, atLeast);
        for (const bool dark : {false, true}) {
            m_appearance.setDark(dark);
            for (const QString &ink : inks) {
                for (const QString &ground : grounds)
                    compare(color(ink), color(ground), atLeast, ink + u' ' + ground);
            }
        }
    }

    void priorities()
    {
        for (const bool dark : {false, true}) {
            m_appearance.setDark(dark);
            for (const auto &priority : rawValues<Priority>) {
                const QString word = priority.word;
                compare(colorOf("ink", word), colorOf("fill", word), 4.5, word);
                compare(colorOf("dot", word), color(QStringLiteral("card")), 2.5, word);
            }
        }
    }

    void followsTheDesktopWhileOpen()
    {
        m_appearance.setDark(false);
        QVERIFY(luminance(color(QStringLiteral("window"))) > 0.5);
        m_appearance.setDark(true);
        QVERIFY(luminance(color(QStringLiteral("window"))) < 0.1);
        QCOMPARE(m_theme->property("durationShort").toInt(), 0);
    }

private:
    [[nodiscard]] QColor color(const QString &name) const
    {
        const QVariant value = m_theme->property(name.toLatin1());
        if (!value.isValid())
            QTest::qFail(qPrintable(QStringLiteral("no such colour: ") + name), __FILE__, __LINE__);
        return value.value<QColor>();
    }

    /// What a view that is bound to the theme's functions sees.
    [[nodiscard]] QColor colorOf(const char *property, const QString &priority) const
    {
        m_view->setProperty("priority", priority);
        return m_view->property(property).value<QColor>();
    }

    void compare(const QColor &ink, const QColor &ground, double atLeast, const QString &what) const
    {
        const double found = contrastBetween(over(ink, ground), ground);
        if (found < atLeast)
            QTest::qFail(qPrintable(QStringLiteral("%1, %2: %3")
                                        .arg(what, m_appearance.isDark() ? u"dark"_qs : u"light"_qs)
                                        .arg(found)),
                         __FILE__, __LINE__);
    }

    FixedAppearance m_appearance;
    std::unique_ptr<UiEngine> m_engine;
    std::unique_ptr<QObject> m_view;
    QObject *m_theme = nullptr;
};

QTEST_MAIN(ThemeTest)
#include "theme_test.moc"
