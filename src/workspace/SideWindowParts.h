#pragma once

#include <QSize>
#include <QString>

class QComboBox;
class QPushButton;
class QWidget;

/// What the language editor, the guide and the picture window are made of.
namespace pulselark {

/// Texts of these windows that a language pack may not have yet, by the item that they stand under.
enum SideText : int {
    SideTextNextEmpty = 464,     ///< what comGo does
    SideTextMarker = 465,        ///< that an item is a section marker
    SideTextNoQuote = 466,       ///< that a text holds no quote character
    SideTextUnsaved = 467,       ///< that edits are in memory only
    SideTextNothingEmpty = 468,  ///< that a language has all its texts
    SideTextPackUntouched = 469, ///< what is safe after a pack could not be written
    SideTextCharacters = 483,
    SideTextUnknownPicture = 484, ///< what is safe after a picture could not be written
    SideTextSaved = 485,
    SideTextCopy = 486,
    SideTextBack = 487,
    SideTextForward = 488,
    SideTextContents = 489,
    SideTextSearch = 490,
    SideTextNotFound = 491,
};

/// A text of the language in use; its English words where the pack has none.
QString WordsOf(SideText text);

/// The words of a language text, or `english` in a program without a language pack.
QString TextOr(int item, const char* english);

/// Style sheet of a side window: the palette of forms.
QString SideWindowStyle();
/// The part of it that is about buttons, fields and lists.
QString SideControlStyle();

/// A push button that Enter does not press by itself.
QPushButton* NewSideButton(const char* name, QWidget* parent);

/// A field that drops a list down.
QComboBox* NewSideList(const char* name, QWidget* parent);

/// Sets what a control shows, which is also its name for screen readers.
void SetCaption(QPushButton* button, const QString& caption);

/// Makes a button the main one of its window.
void MakeMainButton(QPushButton* button);

/// Marks a button that throws something away.
void MakeDestructiveButton(QPushButton* button);

/// The size that a window would like, no larger than nine tenths of its screen.
QSize RoomFor(const QWidget& window, const QSize& wanted);

} // namespace pulselark
