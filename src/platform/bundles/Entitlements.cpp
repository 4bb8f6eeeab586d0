#include "Entitlements.h"

#include "BundleBudget.h"
#include "DerEntitlementsReader.h"
#include "PropertyList.h"

#include <QtEndian>

#include <algorithm>
#include <utility>

namespace {

std::optional<QVariantMap> readXml(const QByteArray &content, BundleBudget &budget)
{
    const auto value = readPropertyList(content, budget);
    if (!value || value->typeId() != QMetaType::QVariantMap)
        return std::nullopt;
    return value->toMap();
}

std::optional<QVariantMap> readDer(const QByteArray &content, BundleBudget &budget)
{
    budget.beginList();
    return DerEntitlementsReader(content, budget).read();
}

struct EntitlementsForm
{
    // What a signature's index calls it.
    quint32 slot;
    quint32 magic;
    std::optional<QVariantMap> (*read)(const QByteArray &content, BundleBudget &budget);
};
// In the order of preference: the first that can be read counts.
constexpr EntitlementsForm forms[] = {
    {5, 0xfade7171, readXml},
    {7, 0xfade7172, readDer},
};

constexpr quint32 signatureMagic = 0xfade0cc0;
constexpr qint64 largestEntitlements = 1024 * 1024;
// Signatures have about ten parts.
constexpr quint32 mostParts = 256;

// A signature is big-endian on every processor.
quint32 integerAt(QByteArrayView bytes, qsizetype position)
{
    return qFromBigEndian<quint32>(bytes.sliced(position, 4).data());
}

/// What follows the magic number and the length of the part that begins `offset` bytes into `signature`; absent
/// when it is another part than that, or is not wholly inside of the signature and of the file.
std::optional<QByteArray> partContent(const ByteSource &file, ByteRange signature, qint64 offset, quint32 magic)
{
    constexpr qint64 headSize = 8;
    if (offset > signature.length - headSize)
        return std::nullopt;
    const auto head = file(signature.offset + offset, headSize);
    if (head.size() < headSize || integerAt(head, 0) != magic)
        return std::nullopt;
    const qint64 length = integerAt(head, 4);
    if (length < headSize || length > signature.length - offset || length > largestEntitlements)
        return std::nullopt;
    auto content = file(signature.offset + offset + headSize, length - headSize);
    return content.size() == length - headSize ? std::optional(std::move(content)) : std::nullopt;
}

std::optional<QVariantMap> entitlementsIn(const ByteSource &file, ByteRange signature, BundleBudget &budget)
{
    constexpr qint64 headSize = 12;
    constexpr qint64 recordSize = 8;
    const auto head = signature.length < headSize ? QByteArray() : file(signature.offset, headSize);
    if (head.size() < headSize || integerAt(head, 0) != signatureMagic)
        return std::nullopt;
    signature.length = std::min<qint64>(signature.length, integerAt(head, 4));
    const qint64 count = std::min(integerAt(head, 8), mostParts);
    if (count * recordSize > signature.length - headSize)
        return std::nullopt;

    const auto index = file(signature.offset + headSize, count * recordSize);
    for (const auto &form : forms) {
        for (qsizetype at = 0; at + recordSize <= index.size(); at += recordSize) {
            if (integerAt(index, at) != form.slot)
                continue;
            const auto content = partContent(file, signature, integerAt(index, at + 4), form.magic);
            if (auto entitlements = content ? form.read(*content, budget) : std::nullopt)
                return entitlements;
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<QVariantMap> readEntitlements(const ByteSource &file, BundleBudget &budget)
{
    for (const auto &signature : codeSignatures(file)) {
        if (auto entitlements = entitlementsIn(file, signature, budget))
            return entitlements;
    }
    return std::nullopt;
}
