#pragma once

#include <QString>
#include <QStringList>

namespace quorvale {

/// The languages that the viewer and its control speak: "system" follows the desktop and is English
/// where the desktop's language is none of them. The others are codes of languages.
QStringList viewerLanguages();

/// What a language calls itself; empty for "system".
QString ownNameOf(const QString& language);

/// From now on the program speaks this language: windows hear of it by `QEvent::LanguageChange`,
/// and controls that are created from now on use it too. Nothing happens if it does already.
void speak(const QString& language);

/// The code of the language that is spoken, never "system".
QString spokenLanguage();

/// Speaks what the user chose last, unless something is spoken already.
void speakAsChosen();

}  // namespace quorvale
