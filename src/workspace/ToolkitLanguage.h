#pragma once

namespace pulselark {

/// Has the toolkit's own words, those of file dialogs and of the menus of text fields, follow the language in
/// use, as far as its translations are installed; else they are English.
void UseToolkitLanguage();

} // namespace pulselark
