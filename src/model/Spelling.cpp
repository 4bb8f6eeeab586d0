#include "Spelling.h"

#include <QStringDecoder>

QString decodedText(QByteArrayView utf8)
{
    using enum QStringConverter::Flag;
    return QStringDecoder(QStringConverter::Utf8, Stateless | ConvertInitialBom)(utf8);
}

QString canonicalForm(QStringView text)
{
    return text.toString().normalized(QString::NormalizationForm_C);
}

// What the Unicode standard calls a canonical caseless match: folding may take letters apart, and is right only for
// letters that are apart already.
QString caselessForm(QStringView text)
{
    return canonicalForm(text.toString().normalized(QString::NormalizationForm_D).toCaseFolded());
}
