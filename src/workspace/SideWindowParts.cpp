#include "workspace/SideWindowParts.h"

#include "workspace/Icons.h"
#include "workspace/Look.h"
#include "workspace/Texts.h"

#include <QComboBox>
#include <QPainter>
#include <QPushButton>
#include <QScreen>

namespace pulselark {

namespace {

/// The toolkit's style sheets know no arrow that is not a file.
class ChevronList final : public QComboBox {
public:
    using QComboBox::QComboBox;

protected:
    void paintEvent(QPaintEvent* event) override {
        QComboBox::paintEvent(event);
        QPainter painter(this);
        PaintIcon(painter, Icon::ArrowDown, QRectF(width() - 26, height() / 2.0 - 8, 16, 16),
                  FormColour::Ink);
    }
};

const char* EnglishOf(SideText text) {
    switch (text) {
    case SideTextNextEmpty:
        return "Go to the next item that is still empty";
    case SideTextMarker:
        return "This item is a section marker. It helps to find a place in the file and is not translated.";
    case SideTextNoQuote:
        return "A text cannot hold the quote character \".";
    case SideTextUnsaved:
        return "Your edits are in memory until you save them; closing this window keeps them there.";
    case SideTextNothingEmpty:
        return "No item of this language is empty.";
    case SideTextPackUntouched:
        return "Your edits are still in memory, and the older language pack is untouched.";
    case SideTextCharacters:
        return "Character";
    case SideTextUnknownPicture:
        return "The picture is still in this window, and any older file is untouched.";
    case SideTextSaved:
        return "saved";
    case SideTextCopy:
        return "Copy";
    case SideTextBack:
        return "Back";
    case SideTextForward:
        return "Forward";
    case SideTextContents:
        return "Contents";
    case SideTextSearch:
        return "Search in this page";
    case SideTextNotFound:
        return "Not on this page";
    }
    return "";
}

} // namespace

QString WordsOf(SideText text) {
    return TextOr(text, EnglishOf(text));
}

QString TextOr(int item, const char* english) {
    const QString text = Text(item);
    return text.isEmpty() ? QString::fromUtf8(english) : text;
}

QString SideWindowStyle() {
    return QString("QDialog { background: %1; } QLabel { color: %2; } QLabel[hint=\"true\"] { color: %3; }")
               .arg(FormColour::Paper.name(), FormColour::Ink.name(), FormColour::Hint.name()) +
           SideControlStyle();
}

QString SideControlStyle() {
    return QString("QPushButton { background: %3; color: %2; border: 1px solid %4; border-radius: 6px;"
                   " min-height: 34px; min-width: 56px; padding: 0 16px; outline: none; }"
                   "QPushButton:hover { background: #EEF4F1; } QPushButton:pressed { background: #DDE8E4; }"
                   "QPushButton[main=\"true\"] { background: %5; color: white; border-color: %5; }"
                   "QPushButton[destructive=\"true\"] { color: %6; border-color: %6; }"
                   "QPushButton:disabled { color: #A5B0B0; border-color: #C7D2D0; background: %3; }"
                   "QLineEdit, QComboBox { background: %3; color: %2; border: 1px solid %4;"
                   " border-radius: 6px; min-height: 30px; padding: 0 10px; outline: none;"
                   " selection-background-color: %5; selection-color: white; }"
                   "QLineEdit:read-only { color: %7; background: %1; }"
                   "QComboBox::drop-down { border: none; width: 28px; }"
                   "QComboBox QAbstractItemView { background: %3; color: %2; border: 1px solid %4;"
                   " selection-background-color: %5; selection-color: white; outline: none; }"
                   "QListView, QTextBrowser { background: %3; color: %2; border: 1px solid %8;"
                   " border-radius: 8px; outline: none; selection-background-color: %5;"
                   " selection-color: white; }"
                   "QScrollBar { background: transparent; border: none; margin: 2px; }"
                   "QScrollBar:vertical { width: 12px; } QScrollBar:horizontal { height: 12px; }"
                   "QScrollBar::handle { background: %4; border-radius: 4px; min-height: 28px;"
                   " min-width: 28px; }"
                   "QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }"
                   "QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }")
        .arg(FormColour::Paper.name(), FormColour::Ink.name(), FormColour::Card.name(),
             FormColour::Edge.name(), FormColour::Teal.name(), FormColour::Danger.name(),
             FormColour::Hint.name(), FormColour::Rule.name());
}

QPushButton* NewSideButton(const char* name, QWidget* parent) {
    auto* button = new QPushButton(parent);
    button->setObjectName(name);
    button->setFont(TextFont(13, 500));
    button->setAutoDefault(false);
    return button;
}

QComboBox* NewSideList(const char* name, QWidget* parent) {
    auto* list = new ChevronList(parent);
    list->setObjectName(name);
    return list;
}

void SetCaption(QPushButton* button, const QString& caption) {
    QString shown = caption;
    button->setText(shown.replace('&', "&&"));
    button->setAccessibleName(caption);
}

void MakeMainButton(QPushButton* button) {
    button->setProperty("main", true);
}

void MakeDestructiveButton(QPushButton* button) {
    button->setProperty("destructive", true);
}

QSize RoomFor(const QWidget& window, const QSize& wanted) {
    const QScreen* screen = window.screen();
    return screen == nullptr ? wanted : wanted.boundedTo(screen->availableSize() * 0.9);
}

} // namespace pulselark
