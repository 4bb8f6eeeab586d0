#include "Spelling.h"

#include "FileNames.h"

#include <QStringDecoder>

#include <algorithm>

QString decodedText(QByteArrayView utf8)
{
    using enum QStringConverter::Flag;
    return QStringDecoder(QStringConverter::Utf8, Stateless | ConvertInitialBom)(utf8);
}

QString canonicalForm(QStringView text)
{
    return text.toString().normalized(QString::NormalizationForm_C);
}

bool isAscii(QByteArrayView utf8)
{
    return std::ranges::all_of(utf8, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

QByteArray canonicalFileName(QByteArrayView fileName)
{
    const auto text = isAscii(fileName) ? std::nullopt : decodedFileName(fileName);
    return text ? canonicalForm(*text).toUtf8() : fileName.toByteArray();
}

// What the Unicode standard calls a canonical caseless match: folding may take letters apart, and is right only for
// letters that are apart already.
QString caselessForm(QStringView text)
{
    return canonicalForm(text.toString().normalized(QString::NormalizationForm_D).toCaseFolded());
}
