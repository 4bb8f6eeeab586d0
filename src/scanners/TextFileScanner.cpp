#include "TextFileScanner.h"

#include "ExtensionScan.h"

namespace {

// Other plain-text formats are not documents: a disk is full of them, and they are small.
constexpr std::string_view plainTextExtensions[] = {"txt"};
constexpr std::string_view richTextExtensions[] = {"rtf"};
constexpr std::string_view microsoftOfficeExtensions[] = {
    "doc",  "docx", "docm", "dot", "dotx", "dotm", "xls", "xlsx", "xlsm", "xlsb",
    "xlt",  "xltx", "xltm", "ppt", "pptx", "pptm", "pot", "potx", "potm", "pps",
    "ppsx", "ppsm", "pub",  "vsd", "vsdx", "vsdm", "vst", "vstx", "vstm", "one"};
constexpr std::string_view libreOfficeExtensions[] = {"odt", "ott", "ods", "ots", "odp", "otp",
                                                      "odg", "otg", "odf", "odb", "odm"};
constexpr std::string_view pdfExtensions[] = {"pdf"};

constexpr ExtensionTable<TextFileCategory> tables[] = {
    {TextFileCategory::plainText, plainTextExtensions},
    {TextFileCategory::richText, richTextExtensions},
    {TextFileCategory::microsoftOffice, microsoftOfficeExtensions},
    {TextFileCategory::libreOffice, libreOfficeExtensions},
    {TextFileCategory::pdf, pdfExtensions},
};

} // namespace

TextFileScanner::TextFileScanner(const FileSystem &fileSystem) : m_fileSystem(fileSystem) { }

QList<TextFile> TextFileScanner::scanTextFiles(const Url &folder, const QSet<TextFileCategory> &categories,
                                               qint64 limit) const
{
    return scanByExtension<TextFile>(m_fileSystem, folder, categories, limit, tables);
}
