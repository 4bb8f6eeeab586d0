#pragma once

#include <QString>
#include <QStringList>

/// Which of a bundle's translations to look into, best first: of the user's languages the first that the bundle
/// has at all, in its closest variants, and then the language that the bundle was written in; then what is not
/// translated, for which an empty text stands, what all translations are based on, English, and all others as they
/// come.
///
/// `available` and `developmentRegion` are spelled as bundles spell them: "pl", "pt-BR", "pt_BR", "zh_TW", or old
/// names such as "German". `preferred` are language tags such as "pl-PL", the user's first choice first. The
/// answer holds members of `available` as they are spelled.
QStringList translationsToSearch(const QStringList &available, const QStringList &preferred,
                                 const QString &developmentRegion);
