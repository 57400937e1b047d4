#include "workspace/ToolkitLanguage.h"

#include "session/LanguageTable.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

#include <array>

namespace pulselark {

namespace {

// In the order of the languages by name.
constexpr std::array<const char*, NamedLanguageCount> Codes{
    "en", "de", "fr", "es", "it", "pt_BR", "nl", "ja", "sv", "nb", "da", "fi", "pl", "cs", "ru", "tr", "el"};

} // namespace

void UseToolkitLanguage() {
    static QTranslator translator;
    static Integer inUse = 0; // the toolkit's words are English by themselves
    if (inUse == LanguageIndex)
        return;
    inUse = LanguageIndex;
    QCoreApplication::removeTranslator(&translator);
    const auto language = static_cast<std::size_t>(LanguageIndex);
    if (language == 0 || language >= Codes.size())
        return;
    const QString name = QString("qtbase_") + Codes[language];
    if (translator.load(name, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&translator);
}

} // namespace pulselark
