#include "windows/panel_window.h"

#include "windows/panel_placement.h"
#include "windows/raise_window.h"
#include "windows/screen_source.h"

#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainterPath>
#include <QQuickItem>
#include <QRegion>
#include <QScreen>

#include <algorithm>

namespace pingwell {

namespace {

constexpr int panelWidth = 340;

/// A Wayland compositor places every window itself, and tiling compositors tile windows of the type Tool.
bool placesOwnWindows()
{
    return !QGuiApplication::platformName().startsWith(QStringLiteral("wayland"));
}

Qt::WindowFlags panelFlags()
{
    const Qt::WindowFlags flags = Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;
    return flags | (placesOwnWindows() ? Qt::Tool : Qt::Window);
}

const QScreen *screenAt(QPoint position, const QScreen *otherwise)
{
    const QScreen *screen = QGuiApplication::screenAt(position);
    return screen ? screen : otherwise;
}

/// Computes the size of `item` and its children now instead of before the first frame.
void layOut(QQuickItem *item)
{
    const QList<QQuickItem *> children = item->childItems();
    std::for_each(children.begin(), children.end(), layOut);
    item->ensurePolished();
}

/// A rectangle with round corners.
QRegion roundedRegion(QSize size, double radius)
{
    QPainterPath path;
    path.addRoundedRect(QRectF(QPointF(), size), radius, radius);
    return {path.toFillPolygon().toPolygon()};
}

PanelVisibility::TimePoint timeNow()
{
    return std::chrono::steady_clock::now();
}

} // namespace

PanelWindow::PanelWindow(QQmlEngine *engine, AppStore *store)
    : QQuickView(engine, nullptr)
    , m_store(store)
{
    setTitle(QStringLiteral("Pingwell"));
    setFlags(panelFlags());
    // Transparent outside the round corners.
    setColor(Qt::transparent);
    setResizeMode(QQuickView::SizeRootObjectToView);
    setInitialProperties({{QStringLiteral("store"), QVariant::fromValue(store)}});
    setSource(screenSource(QStringLiteral("PopoverView")));
    connect(rootObject(), SIGNAL(openMainRequested()), this, SIGNAL(openMainRequested()));
    connect(rootObject(), SIGNAL(quitRequested()), this, SIGNAL(quitRequested()));
    // Queued, because one change of the content changes the height more than once.
    connect(rootObject(), SIGNAL(implicitHeightChanged()), this, SLOT(fit()), Qt::QueuedConnection);
    connect(rootObject(), SIGNAL(isInUseChanged()), this, SLOT(fit()), Qt::QueuedConnection);
    connect(this, &QWindow::activeChanged, this, &PanelWindow::noteActive);
}

PanelWindow::~PanelWindow() = default;

void PanelWindow::open(QPoint position)
{
    if (!m_visibility.isVisible()) {
        m_position = position.isNull() ? QCursor::pos() : position;
        layOut(rootObject());
        place();
        m_visibility.shown();
    }
    raiseWindow(*this, {});
}

void PanelWindow::toggle(QPoint position)
{
    if (m_visibility.clicked(timeNow()))
        open(position);
    else
        hide();
}

void PanelWindow::keyPressEvent(QKeyEvent *event)
{
    QQuickView::keyPressEvent(event);
    if (!event->isAccepted() && event->key() == Qt::Key_Escape)
        hide();
}

void PanelWindow::hideEvent(QHideEvent *event)
{
    m_visibility.hidden();
    QQuickView::hideEvent(event);
}

void PanelWindow::noteActive()
{
    if (isActive())
        m_visibility.activated();
    else if (m_visibility.deactivated(timeNow(), hasUnsentReply()))
        hide();
}

/// Adapts the height to the content, but not while the person may be about to press something: a new height moves the
/// buttons at the panel's end, or all of them where the panel stands above the status item.
void PanelWindow::fit()
{
    if (m_visibility.isVisible() && !rootObject()->property("isInUse").toBool())
        place();
}

/// Gives the panel the height of its content, or of the screen if that is less.
void PanelWindow::place()
{
    const QRect available = screenAt(m_position, screen())->availableGeometry();
    const int wanted = qCeil(rootObject()->implicitHeight());
    const QSize size(panelWidth, qMin(wanted, available.height()));
    setMinimumSize(size);
    setMaximumSize(size);
    resize(size);
    if (placesOwnWindows()) {
        setPosition(panelPosition(m_position, available, size));
        // An X server without a compositor paints transparent pixels black.
        setMask(roundedRegion(size, rootObject()->property("radius").toReal()));
    }
}

bool PanelWindow::hasUnsentReply() const
{
    const QHash<QString, QString> &drafts = m_store->replyDrafts();
    if (drafts.isEmpty())
        return false;
    const QList<Alert> waiting = m_store->needsReply();
    return std::any_of(waiting.begin(), waiting.end(),
                       [&drafts](const Alert &alert) { return !drafts.value(alert.id).isEmpty(); });
}

} // namespace pingwell
