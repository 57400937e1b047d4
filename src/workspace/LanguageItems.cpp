#include "workspace/LanguageItems.h"

#include "session/LanguageTable.h"
#include "workspace/Look.h"

#include <QPainter>

#include <array>

namespace pulselark {

namespace {

constexpr int LanguageMarker = 1;
constexpr int RowHeight = 28;
constexpr int NumberWidth = 44;

constexpr const char* CommonSigns = "…–—’‘“”„«»·•°²³±×÷≥≤→♥©";

// By language, in the order of the settings list.
constexpr std::array<const char*, NamedLanguageCount> Letters{
    "éèïö",
    "äöüßÄÖÜ",
    "àâæçéèêëîïôœùûüÿÀÂÆÇÉÈÊËÎÏÔŒÙÛÜ",
    "áéíñóúü¿¡ÁÉÍÑÓÚÜ",
    "àèéìíîòóùúÀÈÉÌÍÒÓÙÚ",
    "áâãàçéêíóôõúüÁÂÃÀÇÉÊÍÓÔÕÚÜªº",
    "áéëèïíóöúüÁÉËÏÓÖÚÜ",
    "あいうえおかきくけこさしすせそたちつてとなにぬねのはひふへほまみむめもやゆよらりるれろわをん"
    "アイウエオカキクケコサシスセソタチツテトナニヌネノハヒフヘホマミムメモヤユヨラリルレロワヲンー、。「」",
    "åäöéÅÄÖÉ",
    "æøåéòÆØÅÉÒ",
    "æøåéÆØÅÉ",
    "äöåšžÄÖÅŠŽ",
    "ąćęłńóśźżĄĆĘŁŃÓŚŹŻ",
    "áčďéěíňóřšťúůýžÁČĎÉĚÍŇÓŘŠŤÚŮÝŽ",
    "абвгдеёжзийклмнопрстуфхцчшщъыьэюяАБВГДЕЁЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯ",
    "çğıöşüâîûÇĞİÖŞÜÂÎÛ",
    "αβγδεζηθικλμνξοπρσςτυφχψωάέήίόύώϊϋΐΰΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟΠΡΣΤΥΦΧΨΩΆΈΉΊΌΎΏ"};

} // namespace

bool IsSectionMarker(int language, int item) {
    return item == LanguageMarker || LanguageTable(language, item).starts_with("---") ||
           LanguageTable(0, item).starts_with("---");
}

int NextEmptyItem(int language, int item) {
    for (int step = 1; step <= LanguageItems; ++step) {
        const int next = (item + step) % LanguageItems;
        if (LanguageTable(language, next).empty() && !LanguageTable(0, next).empty() &&
            !IsSectionMarker(language, next))
            return next;
    }
    return -1;
}

QString SpecialCharacters(int language) {
    const QString letters =
        language < NamedLanguageCount ? QString::fromUtf8(Letters[static_cast<std::size_t>(language)]) : "";
    return letters + QString::fromUtf8(CommonSigns);
}

void LanguageItemsModel::SetLanguage(int language) {
    language_ = language;
    Refresh();
}

void LanguageItemsModel::Refresh() {
    emit dataChanged(index(0), index(LanguageItems - 1));
}

int LanguageItemsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : LanguageItems;
}

QVariant LanguageItemsModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    const QString text = QString::fromStdString(LanguageTable(language_, index.row()));
    if (role == Qt::DisplayRole)
        return text;
    if (role == Qt::AccessibleTextRole)
        return QString("%1: %2").arg(index.row()).arg(text);
    if (role == Qt::UserRole)
        return IsSectionMarker(language_, index.row());
    return {};
}

void LanguageItemPainter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                const QModelIndex& index) const {
    const bool selected = (option.state & QStyle::State_Selected) != 0;
    const bool marker = index.data(Qt::UserRole).toBool();
    if (selected)
        painter->fillRect(option.rect, FormColour::Teal);
    else if (marker || (option.state & QStyle::State_MouseOver) != 0)
        painter->fillRect(option.rect, QColor(0xEE, 0xF4, 0xF1));
    const QRect number(option.rect.left(), option.rect.top(), NumberWidth, option.rect.height());
    painter->setFont(TextFont(12));
    painter->setPen(selected ? QColor(Qt::white) : FormColour::Hint);
    painter->drawText(number.adjusted(0, 0, -8, 0), Qt::AlignRight | Qt::AlignVCenter,
                      QString::number(index.row()));
    painter->setFont(TextFont(13, marker ? 500 : 400));
    painter->setPen(selected ? QColor(Qt::white) : FormColour::Ink);
    const QRect words = option.rect.adjusted(NumberWidth + 4, 0, -12, 0);
    const QString text = index.data(Qt::DisplayRole).toString();
    painter->drawText(words, Qt::AlignLeft | Qt::AlignVCenter,
                      painter->fontMetrics().elidedText(text, Qt::ElideRight, words.width()));
}

QSize LanguageItemPainter::sizeHint(const QStyleOptionViewItem& /*option*/,
                                    const QModelIndex& /*index*/) const {
    return {200, RowHeight};
}

} // namespace pulselark
