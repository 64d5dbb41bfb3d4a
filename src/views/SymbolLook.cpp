#include "views/SymbolLook.h"

namespace {

/// By kind.
constexpr const char* ICONS[] = {
    "",
    "mel_global_proc",
    "mel_proc",
    "mel_global_var",
    "python_import",
    "python_import",
    "python_import",
    "python_main",
    "python_method",
    "python_static_method",
    "python_class_method",
    "python_class",
    "python_variable",
    "python_class_variable",
};

} // namespace

QLatin1String SymbolLook::Icon(int kind)
{
    return QLatin1String(ICONS[kind]);
}

int SymbolLook::EndOf(const ParserItem& item)
{
    const bool isFirstWord = item.type == ParserItemType::PythonImportAs
        || item.type == ParserItemType::PythonFromImport;
    const QString name = isFirstWord ? item.name.section(QLatin1Char(' '), 0, 0) : item.name;
    return item.position + name.size();
}
