// on_screen: what the windows on this session's accessibility bus show to a screen reader, a JSON array of
// {"role","name","x","y","width","height"} in screen pixels. For scripts that use the program as it is shipped, where
// nothing else tells what it shows.
#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRect>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int patienceMilliseconds = 2000;
constexpr int deepest = 60;

/// An element on the accessibility bus (AT-SPI 2): who serves it, and where.
struct Element
{
    QString service;
    QString path;
};

QVariantList ask(const QDBusConnection &bus, const Element &element, const QString &interface, const QString &method,
                 const QVariantList &arguments = {})
{
    QDBusMessage message = QDBusMessage::createMethodCall(element.service, element.path, interface, method);
    message.setArguments(arguments);
    return bus.call(message, QDBus::Block, patienceMilliseconds).arguments();
}

QList<Element> childrenOf(const QDBusConnection &bus, const Element &element)
{
    QList<Element> children;
    const QVariant list = ask(bus, element, u"org.a11y.atspi.Accessible"_s, u"GetChildren"_s).value(0);
    if (!list.canConvert<QDBusArgument>())
        return children;
    const auto argument = list.value<QDBusArgument>();
    argument.beginArray();
    while (!argument.atEnd()) {
        Element child;
        QDBusObjectPath path;
        argument.beginStructure();
        argument >> child.service >> path;
        argument.endStructure();
        child.path = path.path();
        children.append(child);
    }
    argument.endArray();
    return children;
}

QString nameOf(const QDBusConnection &bus, const Element &element)
{
    const QVariantList reply =
        ask(bus, element, u"org.freedesktop.DBus.Properties"_s, u"Get"_s, {u"org.a11y.atspi.Accessible"_s, u"Name"_s});
    return reply.value(0).value<QDBusVariant>().variant().toString();
}

QRect placeOf(const QDBusConnection &bus, const Element &element)
{
    constexpr uint onScreen = 0;
    QRect place;
    const QVariant extents = ask(bus, element, u"org.a11y.atspi.Component"_s, u"GetExtents"_s, {onScreen}).value(0);
    if (extents.canConvert<QDBusArgument>())
        extents.value<QDBusArgument>() >> place;
    return place;
}

void describe(const QDBusConnection &bus, const Element &element, int depth, QJsonArray &found)
{
    const QRect place = placeOf(bus, element);
    const QString role = ask(bus, element, u"org.a11y.atspi.Accessible"_s, u"GetRoleName"_s).value(0).toString();
    if (!place.isEmpty()) {
        found.append(QJsonObject{{u"role"_s, role},
                                 {u"name"_s, nameOf(bus, element)},
                                 {u"x"_s, place.x()},
                                 {u"y"_s, place.y()},
                                 {u"width"_s, place.width()},
                                 {u"height"_s, place.height()}});
    }
    for (const Element &child : depth < deepest ? childrenOf(bus, element) : QList<Element>())
        describe(bus, child, depth + 1, found);
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QVariantList address =
        ask(QDBusConnection::sessionBus(), {u"org.a11y.Bus"_s, u"/org/a11y/bus"_s}, u"org.a11y.Bus"_s, u"GetAddress"_s);
    const QDBusConnection bus = QDBusConnection::connectToBus(address.value(0).toString(), u"accessibility"_s);
    if (!bus.isConnected()) {
        std::fprintf(stderr, "There is no accessibility bus in this session.\n");
        return 1;
    }
    QJsonArray found;
    describe(bus, {u"org.a11y.atspi.Registry"_s, u"/org/a11y/atspi/accessible/root"_s}, 0, found);
    std::printf("%s\n", QJsonDocument(found).toJson(QJsonDocument::Compact).constData());
    return 0;
}
