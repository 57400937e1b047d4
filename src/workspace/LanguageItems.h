#pragma once

#include <QAbstractListModel>
#include <QStyledItemDelegate>

namespace pulselark {

/// Whether an item is a section marker, which every save writes anew: item 1, and any whose text begins with
/// "---" in this language or in language 0.
bool IsSectionMarker(int language, int item);

/// The first item after `item`, going round, that is empty in a language and has a text in language 0; -1 if
/// there is none.
int NextEmptyItem(int language, int item);

/// Letters of a language beyond the plain ones, in the order they are shown, with common signs at the end.
QString SpecialCharacters(int language);

/// The items of one language as rows; it reads `LanguageTable` whenever a row is shown.
class LanguageItemsModel final : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    void SetLanguage(int language);
    /// Shows all rows anew.
    void Refresh();

    int rowCount(const QModelIndex& parent) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    int language_ = 0;
};

/// Paints a row: the item's number, then its text; a section marker in medium weight on a tinted plate.
class LanguageItemPainter final : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace pulselark
