#include "screen_fixture.h"

#include <QAccessible>
#include <QQmlIncubationController>
#include <QRegularExpression>
#include <QTest>

#include <functional>

namespace pingwell {

using namespace Qt::StringLiterals;

namespace {

void visit(QQuickItem *item, const std::function<void(QQuickItem *)> &visitor)
{
    if (!item->isVisible())
        return;
    visitor(item);
    const QList<QQuickItem *> children = item->childItems();
    for (QQuickItem *child : children)
        visit(child, visitor);
}

QString colorWord(const QColor &color)
{
    if (color.hsvSaturationF() < 0.2)
        return QStringLiteral("grey");
    if (color.hsvHue() < 50)
        return QStringLiteral("orange");
    return color.hsvHue() < 170 ? QStringLiteral("green") : QStringLiteral("blue");
}

bool isRoundMark(const QQuickItem *item)
{
    return item->property("name") == u"circle.fill"_s;
}

QStringList drawnIn(QQuickItem *item)
{
    QStringList parts;
    visit(item, [&parts](QQuickItem *part) {
        const QString text = part->property("text").toString();
        const bool isBold = part->property("font").value<QFont>().weight() >= QFont::DemiBold;
        if (isRoundMark(part))
            parts << colorWord(part->property("color").value<QColor>());
        else if (!text.isEmpty() && (part->inherits("QQuickText") || part->inherits("QQuickTextEdit")))
            parts << (isBold ? u'*' + text : text);
    });
    return parts;
}

/// Longer than anything just moved or changed stays new.
constexpr std::chrono::seconds aWhile{30};

QString accessibleText(QQuickItem *item, QAccessible::Text kind)
{
    auto *const accessible = QAccessible::queryAccessibleInterface(item);
    return accessible ? accessible->text(kind) : QString();
}

} // namespace

void FixedAppearance::set(bool &wish, bool value)
{
    wish = value;
    emit changed();
}

Alert makeAlert(const QString &id, const QString &title, double minutes)
{
    Alert alert;
    alert.id = id;
    alert.workspaceId = u"w1"_s;
    alert.app = u"Deploy bot"_s;
    alert.title = title;
    alert.body = u"All checks passed."_s;
    alert.topic = u"deploys"_s;
    alert.at = dayEnd - Seconds(60 * minutes);
    return alert;
}

Alert makeChoice(const QString &id, const QString &title, double minutes)
{
    Alert alert = makeAlert(id, title, minutes);
    alert.kind = AlertKind::ask;
    alert.actions = {u"Hold"_s, u"Approve"_s};
    return alert;
}

Alert makeTextAsk(const QString &id, const QString &title, double minutes)
{
    Alert alert = makeChoice(id, title, minutes);
    alert.actions.clear();
    alert.answerType = AnswerType::text;
    return alert;
}

SeedData makeSeed(const QList<Alert> &alerts, WorkspaceRole role)
{
    SeedData seed;
    seed.workspaces = {{u"w1"_s, u"Platform"_s, WorkspaceKind::team, role},
                       {u"w2"_s, u"Personal"_s, WorkspaceKind::personal, WorkspaceRole::owner}};
    seed.alerts = alerts;
    seed.topics = {{u"t1"_s, u"w1"_s, u"deploys"_s, Priority::normal, false, false, {}}};
    return seed;
}

Screen::Screen(const QString &component, const SeedData &seed, bool signedIn, const QVariantMap &properties)
    : m_ownStore(
          std::make_unique<AppStore>(seed, signedIn, nullptr, dayEnd, nullptr, std::make_shared<ManualClock>(dayEnd)))
    , m_store(m_ownStore.get())
{
    load(component, properties);
}

Screen::Screen(const QString &component, AppStore &store, const QVariantMap &properties)
    : m_store(&store)
{
    load(component, properties);
}

void Screen::load(const QString &component, const QVariantMap &properties)
{
    m_engine = std::make_unique<UiEngine>(&m_appearance, [this] { return m_now; });
    m_view = std::make_unique<QQuickView>(m_engine.get(), nullptr);
    QVariantMap initial = properties;
    initial.insert(u"store"_s, QVariant::fromValue(m_store));
    m_view->setInitialProperties(initial);
    m_view->setResizeMode(QQuickView::SizeRootObjectToView);
    m_view->setSource(QUrl(u"qrc:/qt/qml/Pingwell/%1.qml"_s.arg(component)));
    if (m_view->status() != QQuickView::Ready)
        QTest::qFail("the screen does not load", __FILE__, __LINE__);
    m_view->resize(m_view->initialSize());
    m_view->show();
    m_view->requestActivate();
    [[maybe_unused]] const bool isActive = QTest::qWaitForWindowActive(m_view.get());
    settle();
}

QQuickItem *Screen::settledContent() const
{
    settle();
    return m_view->contentItem();
}

QQuickItem *Screen::find(const QString &identifier) const
{
    QQuickItem *found = nullptr;
    visit(settledContent(), [&](QQuickItem *item) {
        if (!found && item->objectName() == identifier)
            found = item;
    });
    return found;
}

bool Screen::canUse(const QString &identifier) const
{
    const QQuickItem *const item = find(identifier);
    return item && item->isEnabled();
}

QString Screen::name(const QString &identifier) const
{
    return accessibleText(find(identifier), QAccessible::Name);
}

QString Screen::value(const QString &identifier) const
{
    return accessibleText(find(identifier), QAccessible::Description);
}

QString Screen::text(const QString &identifier) const
{
    const QQuickItem *const item = find(identifier);
    return item ? item->property("text").toString() : QString();
}

QStringList Screen::drawn(const QString &identifier) const
{
    QQuickItem *const item = find(identifier);
    return item ? drawnIn(item) : QStringList();
}

QStringList Screen::drawnOver() const
{
    QStringList parts;
    visit(settledContent(), [&parts](QQuickItem *item) {
        if (item->inherits("QQuickOverlay"))
            parts << drawnIn(item);
    });
    return parts;
}

bool Screen::isFilled(const QString &identifier) const
{
    const QQuickItem *const item = find(identifier);
    const QPointF inside = place(identifier, {6, item ? item->height() / 2 : 0});
    const QImage image = m_view->grabWindow();
    return image.pixelColor((inside * image.devicePixelRatio()).toPoint()).hsvSaturationF() > 0.5;
}

QQuickItem *Screen::textIn(const QString &identifier, const QString &start) const
{
    QQuickItem *found = nullptr;
    visit(find(identifier), [&](QQuickItem *item) {
        const bool isText = item->property("truncated").isValid();
        if (!found && isText && item->property("text").toString().startsWith(start))
            found = item;
    });
    return found;
}

QPointF Screen::place(const QString &identifier, const QPointF &within) const
{
    const QQuickItem *const item = find(identifier);
    return item ? item->mapToScene(within) : QPointF(-1e6, -1e6);
}

int Screen::count(const QString &pattern) const
{
    const QRegularExpression expression(QRegularExpression::anchoredPattern(pattern));
    int count = 0;
    visit(settledContent(), [&](QQuickItem *item) {
        if (expression.match(item->objectName()).hasMatch())
            ++count;
    });
    return count;
}

void Screen::click(const QString &identifier)
{
    pass(aWhile);
    point(identifier);
    pressAtPointer();
}

void Screen::pressAtPointer()
{
    QTest::mouseClick(&view(), Qt::LeftButton, {}, m_pointer);
    settle();
}

void Screen::point(const QString &identifier)
{
    QQuickItem *const item = find(identifier);
    if (!item)
        QTest::qFail(qPrintable(u"nothing to point at: "_s + identifier), __FILE__, __LINE__);
    else
        moveTo(item->mapToScene(QPointF(item->width() / 2, item->height() / 2)).toPoint());
}

void Screen::pointAway()
{
    moveTo({1, 1});
}

void Screen::moveTo(QPoint place)
{
    m_pointer = place;
    // A movement to where the pointer was left in another window would be none.
    QTest::mouseMove(m_view.get(), place + QPoint(1, 0));
    QTest::mouseMove(m_view.get(), place);
    settle();
}

void Screen::click(const QStringList &identifiers)
{
    for (const QString &identifier : identifiers)
        click(identifier);
}

void Screen::rightClick(const QString &identifier, const QPointF &within)
{
    pass(aWhile);
    moveTo(place(identifier, within).toPoint());
    QTest::mouseClick(m_view.get(), Qt::RightButton, {}, m_pointer);
    settle();
}

void Screen::type(const QString &text)
{
    for (const QChar character : text)
        QTest::sendKeyEvent(QTest::Click, &view(), Qt::Key_unknown, QString(character), {});
    settle();
}

void Screen::press(QKeyCombination key)
{
    pass(aWhile);
    QTest::keyClick(m_view.get(), key.key(), key.keyboardModifiers());
    settle();
}

void Screen::press(const QList<QKeyCombination> &keys)
{
    for (const QKeyCombination &key : keys)
        press(key);
}

QString Screen::focused() const
{
    settle();
    const QQuickItem *const item = m_view->activeFocusItem();
    return item ? item->objectName() : QString();
}

void Screen::settle() const
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    m_view->grabWindow();
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    const auto *const pieces = m_engine->incubationController();
    if (pieces && pieces->incubatingObjectCount() > 0)
        QTest::qFail("something is made piece by piece: Qt crashes when it goes away half made", __FILE__, __LINE__);
}

} // namespace pingwell
