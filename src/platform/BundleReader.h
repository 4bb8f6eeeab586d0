#pragma once

#include "Url.h"

#include <QByteArray>
#include <QString>
#include <QVariant>

#include <optional>
#include <utility>

/// What a bundle says of itself.
class Bundle
{
public:
    /// `information` is the information dictionary with localised values already in place.
    explicit Bundle(QVariantMap information = {}) : m_information(std::move(information)) { }

    /// "CFBundleIdentifier" where it is a text that can name something; absent otherwise. May be empty.
    std::optional<QString> identifier() const { return text(QStringLiteral("CFBundleIdentifier")); }

    /// The value under `key`, in the user's language where the bundle localises it; absent when there is none, when it is
    /// not a text, and when it is longer than the name of a file: then it names nothing. An empty text is a text.
    std::optional<QString> text(const QString &key) const
    {
        const auto value = m_information.constFind(key);
        // In UTF-16 units, as the Mac's file systems count.
        constexpr qsizetype longestName = 255;
        if (value == m_information.constEnd() || value->typeId() != QMetaType::QString
            || value->toString().size() > longestName)
            return std::nullopt;
        return value->toString();
    }

private:
    QVariantMap m_information;
};

/// Opens folders as bundles. Safe to call from any thread; never fails, hangs or runs what it reads: a bundle is
/// hostile input.
class BundleReader
{
public:
    virtual ~BundleReader() = default;

    /// Absent when there is no folder at `url` or its information dictionary cannot be read.
    virtual std::optional<Bundle> open(const Url &url) const = 0;

    /// The bytes of the picture that stands for the bundle at `url` (.icns or .png); empty when it has none.
    virtual QByteArray iconData(const Url &url) const = 0;

    /// Where our own bundle is; off the Mac, the folder that the program was started from.
    virtual Url mainBundleUrl() const = 0;
};
