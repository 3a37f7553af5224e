#pragma once

namespace featurebrowser {

/// Puts the library's words into the language of the user (QLocale), once per process; English for
/// languages that it does not know. Needs a QApplication.
void loadTranslations();

} // namespace featurebrowser
