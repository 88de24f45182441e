/// \file
/// The language of the tool's texts.
#pragma once

#include <QString>

namespace KyrTool {

/// Sets the language of the user, as the system knows it. English until then.
void useLanguageOfUser();
/// Sets a language for a while, for texts that are not for the user.
/// \param shortcut as "de"
/// \throws UsageError for no language, FileError when its catalogue cannot be read
void useLanguage(const QString& shortcut);
/// Gives up all catalogues, in front of the end of the application object.
void forgetLanguage();

}  // namespace KyrTool
