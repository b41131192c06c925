#pragma once

#include <QAbstractListModel>
#include <QList>
#include <QVariant>
#include <QtQml/qqmlregistration.h>

namespace pingwell {

/// One row of a keyed list.
struct KeyedRow
{
    QString id;
    QVariant value;
};

} // namespace pingwell

Q_DECLARE_TYPEINFO(pingwell::KeyedRow, Q_RELOCATABLE_TYPE);

namespace pingwell {

/// A list of value rows known by id. It never resets: given its next rows, it removes, moves and inserts only what
/// differs and announces only the rows whose value changed, so that a view keeps its focus, caret and scroll position.
/// Where very much differs it removes and inserts rows that stay, too; `idAt` and `rowOf` find them again.
class KeyedListModel : public QAbstractListModel
{
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    enum Role {
        /// The whole row, as one typed value.
        ValueRole = Qt::UserRole,
    };

    /// `valueName` is what delegates call the row.
    explicit KeyedListModel(const QByteArray &valueName, QObject *parent = nullptr);

    [[nodiscard]] int count() const { return int(m_rows.size()); }
    /// Where the row with that id is now; -1 when it isn't here.
    Q_INVOKABLE int rowOf(const QString &id) const;
    /// The id of a row; empty for one that isn't there.
    [[nodiscard]] QString idAt(int row) const { return m_rows.value(row).id; }
    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override { return m_roleNames; }

signals:
    void countChanged();

protected:
    /// What delegates are given for a row; the value itself unless a model keeps it in another form.
    [[nodiscard]] virtual QVariant presented(const QVariant &value) const { return value; }

    [[nodiscard]] const QList<KeyedRow> &rows() const { return m_rows; }
    /// Of rows with the same id only the first is kept.
    void setRows(QList<KeyedRow> rows);

private:
    void arrange(const QList<KeyedRow> &rows);
    void removeRange(qsizetype first, qsizetype count);
    void moveRow(qsizetype from, qsizetype to);
    void insertRange(qsizetype first, const QList<KeyedRow> &rows);
    void updateValues(const QList<KeyedRow> &rows);

    QHash<int, QByteArray> m_roleNames;
    QList<KeyedRow> m_rows;
};

} // namespace pingwell
