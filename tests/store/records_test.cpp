#include "store/records.h"

#include <QSignalSpy>
#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

class RecordsTest : public QObject
{
    Q_OBJECT

    static Device device(const QString &id, const QString &name = {})
    {
        return {.id = id, .name = name, .version = {}};
    }

    static QString idsOf(const Records &records)
    {
        QStringList ids;
        for (const Device &device : records.all<Device>())
            ids << device.id + device.name;
        return ids.join(u' ');
    }

private slots:
    void aRecordIsPutBackWholeOrNotAtAll()
    {
        SeedData seed;
        seed.devices = {device(u"a"_s), device(u"b"_s), device(u"c"_s)};
        Records records(seed);
        const QSignalSpy changes(&records, &Records::devicesChanged);
        QVERIFY(!records.remove<Device>(u"x"_s) && changes.isEmpty());
        const auto b = records.remove<Device>(u"b"_s);
        QCOMPARE(idsOf(records), u"a c"_s);
        records.putBack(*b);
        QCOMPARE(idsOf(records), u"a b c"_s);
        QCOMPARE(changes.size(), 2);
        // Another one of its name has come meanwhile.
        records.remove<Device>(u"b"_s);
        records.add(device(u"b"_s, u"2"_s));
        records.putBack(*b);
        QCOMPARE(idsOf(records), u"a c b2"_s);
        // The list has become shorter.
        const auto last = records.remove<Device>(u"b"_s);
        records.remove<Device>(u"a"_s);
        records.putBack(*last);
        QCOMPARE(idsOf(records), u"c b2"_s);
        const auto before = changes.size();
        records.replace(device(u"a"_s));
        records.replace(device(u"c"_s));
        records.add(device(u"c"_s, u"3"_s));
        QVERIFY2(changes.size() == before, "nothing has changed, and nothing is announced");
    }
};

QTEST_GUILESS_MAIN(RecordsTest)
#include "records_test.moc"
