#pragma once
// Alt mnemonics on the captions of buttons and menus. The marker is for the screen only: the
// model's caption, and every page, export and batch text made from it, stay as they are.
#include <QChar>
#include <QSet>
#include <QString>

namespace tv::gui::bind {

/// The caption a widget shows, marker taken out and a doubled '&' made single again.
QString plain_caption(const QString& shown);

/// The key (lower case) that the shown text marks, or a null char. Only a Latin letter or a digit
/// after a single '&' is a key.
QChar mnemonic_of(const QString& shown);

/// `caption` as shown with a marker: on `keep` when the caption has that letter, else on the
/// first letter of a word whose key is not `taken`, else on any such letter or digit, else on
/// its first letter or digit, shared. A literal '&' is doubled so that it shows as itself.
QString with_mnemonic(const QString& caption, QChar keep, const QSet<QChar>& taken);

}  // namespace tv::gui::bind
