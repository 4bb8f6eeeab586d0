#pragma once

#include <QAbstractListModel>

/// What the views know of a list of found things: its rows by role, and sums that are kept while rows change, so
/// that ticking one row of many costs the same in a list of any length.
///
/// Lives on the main thread. The rows belong to the state object; a view changes nothing but whether a row is
/// selected.
class ListModelBase : public QAbstractListModel
{
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY changed)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY changed)
    Q_PROPERTY(qint64 totalBytes READ totalBytes NOTIFY changed)
    Q_PROPERTY(QString totalSizeText READ totalSizeText NOTIFY changed)
    Q_PROPERTY(int selectedCount READ selectedCount NOTIFY changed)
    Q_PROPERTY(qint64 selectedBytes READ selectedBytes NOTIFY changed)
    Q_PROPERTY(QString selectedSizeText READ selectedSizeText NOTIFY changed)

public:
    /// What a delegate may ask of a row; undefined where a kind of row does not have it. The names in QML are
    /// those of `roleNames`.
    enum Role {
        /// `name`: an application's name, a file's last path component.
        nameRole = Qt::UserRole,
        /// `path`: the full path, decoded for display.
        pathRole,
        /// `uri`: the file URI, every byte of the path kept; names the row's icon to an image provider.
        uriRole,
        /// `sizeText`: the size in the style of files.
        sizeTextRole,
        /// `symbol`: the name of the symbol of the row's kind or category.
        symbolRole,
        /// `tint`: the name of the colour of that symbol.
        tintRole,
        /// `isSelected`: found items only; can be written.
        isSelectedRole,
        /// `isSystemApplication`: applications only.
        isSystemApplicationRole,
        /// `matchKey`: found items only; the key of the text that says how sure it is that the item belongs.
        matchKeyRole,
        /// `kindKey`: what the row is, for `Presentation::kindText`; absent for applications.
        kindKeyRole
    };
    Q_ENUM(Role)

    using QAbstractListModel::QAbstractListModel;

    int count() const { return rowCount(); }
    bool isEmpty() const { return count() == 0; }
    /// Bytes of all rows.
    qint64 totalBytes() const { return m_totalBytes; }
    QString totalSizeText() const;
    /// Rows that are selected, and their bytes; 0 for rows that cannot be selected.
    int selectedCount() const { return m_selectedCount; }
    qint64 selectedBytes() const { return m_selectedBytes; }
    QString selectedSizeText() const;

    QHash<int, QByteArray> roleNames() const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

    /// Selects or unselects one row. Nothing happens for rows that cannot be selected and for a row that is not
    /// there.
    Q_INVOKABLE void setSelected(int row, bool isSelected);
    /// Selects every row or, where every row is selected, none.
    Q_INVOKABLE void toggleAll();

    /// The first row from `from` on, and after the last the first again, whose name begins with `text`, whatever the case;
    /// -1 when there is none.
    Q_INVOKABLE int rowBeginningWith(const QString &text, int from) const;

Q_SIGNALS:
    /// Rows came, went or changed; emitted once a change, after the sums are right.
    void changed();

protected:
    /// What the sums need of one row.
    struct Weight
    {
        qint64 bytes;
        bool isSelected;
    };

    /// Writes the flag into the row; false when nothing changed.
    virtual bool storeSelected(qsizetype row, bool isSelected) = 0;
    virtual Weight weight(qsizetype row) const = 0;

    /// Adds all rows up anew.
    void recount();

private:
    qint64 m_totalBytes = 0;
    qint64 m_selectedBytes = 0;
    int m_selectedCount = 0;
};
