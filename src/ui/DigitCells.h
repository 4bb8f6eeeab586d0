#pragma once

#include <QFont>
#include <QQuickTextDocument>
#include <QSyntaxHighlighter>
#include <qqml.h>

/// Gives every digit of a document a cell as wide as the widest of them, for a number to keep its place while it changes.
/// Fonts have figures for that, which Qt 6.4 cannot ask them for.
class DigitCells : public QSyntaxHighlighter
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickTextDocument *document READ quickDocument WRITE setQuickDocument NOTIFY changed)
    /// The document's.
    Q_PROPERTY(QFont font READ font WRITE setFont NOTIFY changed)

public:
    explicit DigitCells(QObject *parent = nullptr) : QSyntaxHighlighter(parent) { }

    QQuickTextDocument *quickDocument() const { return m_quickDocument; }
    void setQuickDocument(QQuickTextDocument *document);
    QFont font() const { return m_font; }
    void setFont(const QFont &font);

Q_SIGNALS:
    void changed();

protected:
    void highlightBlock(const QString &text) override;

private:
    QQuickTextDocument *m_quickDocument = nullptr;
    QFont m_font;
};
