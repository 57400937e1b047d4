#include "workspace/FormControls.h"
#include "workspace/FormPaint.h"
#include "workspace/Look.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace pulselark {

namespace {

constexpr int TileGap = 11;   // between rows of tiles
constexpr int CaptionGap = 8; // between a tile and its name
constexpr int CaptionLine = 16;

/// The chosen row on a filled plate with a tick.
class RowPainter final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        constexpr int Padding = 12;
        const bool chosen = (option.state & QStyle::State_Selected) != 0;
        const bool usable = (index.flags() & Qt::ItemIsEnabled) != 0;
        if (chosen)
            painter->fillRect(option.rect, FormColour::Teal);
        else if (usable && (option.state & QStyle::State_MouseOver) != 0)
            painter->fillRect(option.rect, HoverPlate);
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setFont(TextFont(13, chosen ? 500 : 400));
        painter->setPen(chosen ? QColor(Qt::white) : usable ? FormColour::Ink : FormColour::Hint);
        painter->drawText(option.rect.adjusted(Padding, 0, -Padding - 20, 0),
                          Qt::AlignLeft | Qt::AlignVCenter, index.data().toString());
        if (chosen)
            PaintTick(*painter, QRectF(option.rect.right() - 27, option.rect.center().y() - 8, 18, 18),
                      Qt::white);
    }
    QSize sizeHint(const QStyleOptionViewItem& /*option*/, const QModelIndex& index) const override {
        return {QFontMetrics(TextFont(13, 500)).horizontalAdvance(index.data().toString()) + 60,
                FormList::RowHeight};
    }
};

} // namespace

// ---- List ----

FormList::FormList(const QString& name, int rowsShown, QWidget* parent)
    : QListWidget(parent), rowsShown_(rowsShown) {
    setObjectName(name);
    setItemDelegate(new RowPainter(this));
    setSelectionMode(QAbstractItemView::SingleSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMouseTracking(true);
    setUniformItemSizes(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setStyleSheet(QString("QListWidget { background: %1; border: 1px solid %2; border-radius: 4px;"
                          " outline: none; }")
                      .arg(FormColour::Card.name(), FormColour::Edge.name()));
    connect(this, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0)
            emit RowChosen(row);
    });
}

void FormList::SetRows(const QStringList& rows, int chosen, const QString& emptyText) {
    const QSignalBlocker quiet(this);
    const bool empty = rows.isEmpty();
    const QStringList shown = empty ? QStringList{emptyText} : rows;
    bool same = count() == shown.size();
    for (int i = 0; same && i < count(); ++i)
        same = item(i)->text() == shown[i];
    if (!same) {
        clear();
        addItems(shown);
        if (empty)
            item(0)->setFlags(Qt::NoItemFlags);
    }
    setFocusPolicy(empty ? Qt::NoFocus : Qt::StrongFocus);
    if (!empty && currentRow() != chosen)
        setCurrentRow(chosen);
    updateGeometry();
}

QSize FormList::sizeHint() const {
    const int rows = std::clamp(count(), 1, rowsShown_);
    return {sizeHintForColumn(0) + 2, rows * RowHeight + 2};
}

// ---- Tiles ----

TileStrip::TileStrip(const QString& name, int count, int columns, const QSize& tile, PaintTile paint,
                     QWidget* parent)
    : QAbstractSlider(parent), columns_(columns), tile_(tile), paint_(std::move(paint)) {
    setObjectName(name);
    setOrientation(Qt::Horizontal);
    setRange(0, count - 1);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void TileStrip::SetCaptions(const QStringList& captions) {
    captions_ = captions;
    updateGeometry();
    update();
}

int TileStrip::CaptionHeight() const {
    return captions_.isEmpty() ? 0 : CaptionGap + CaptionLine;
}

int TileStrip::PitchY() const {
    return tile_.height() + CaptionHeight() + TileGap;
}

double TileStrip::PitchX() const {
    return columns_ > 1 ? (width() - tile_.width()) / (columns_ - 1.0) : tile_.width();
}

QSize TileStrip::sizeHint() const {
    const int rows = maximum() / columns_ + 1;
    int widest = tile_.width();
    for (const QString& caption : captions_)
        widest = std::max(widest, QFontMetrics(TextFont(12, 500)).horizontalAdvance(caption));
    return {columns_ * widest + (columns_ - 1) * 8, rows * PitchY() - TileGap};
}

QPointF TileStrip::CornerOf(int tile) const {
    const int row = tile / columns_;
    return {tile % columns_ * PitchX(), static_cast<double>(row * PitchY())};
}

int TileStrip::TileAt(const QPointF& point) const {
    const double pitch = std::max(PitchX(), 1.0);
    const int column = std::clamp(qRound((point.x() - tile_.width() / 2.0) / pitch), 0, columns_ - 1);
    const int row = std::max(0, static_cast<int>(point.y()) / PitchY());
    return std::min(row * columns_ + column, maximum());
}

void TileStrip::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        setValue(TileAt(event->position()));
}

void TileStrip::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Left:
        setValue(value() - 1);
        break;
    case Qt::Key_Right:
        setValue(value() + 1);
        break;
    case Qt::Key_Up:
        if (value() >= columns_)
            setValue(value() - columns_);
        break;
    case Qt::Key_Down:
        if (value() + columns_ <= maximum())
            setValue(value() + columns_);
        break;
    case Qt::Key_Home:
        setValue(0);
        break;
    case Qt::Key_End:
        setValue(maximum());
        break;
    default:
        event->ignore();
        break;
    }
}

void TileStrip::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

void TileStrip::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    BeginControl(painter, *this);
    for (int tile = 0; tile <= maximum(); ++tile) {
        const bool chosen = tile == value();
        painter.save();
        painter.translate(CornerOf(tile));
        paint_(painter, tile);
        const double half = chosen ? 1 : 0.5;
        const QRectF edge = QRectF(QPointF(0, 0), tile_).adjusted(half, half, -half, -half);
        painter.setPen(QPen(chosen ? FormColour::Teal : FormColour::Edge, 2 * half));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(edge, 5, 5);
        if (tile < captions_.size()) {
            painter.setFont(TextFont(12, chosen ? 500 : 400));
            painter.setPen(chosen ? FormColour::Ink : FormColour::Hint);
            // Under the middle of the tile, but within the strip.
            const double wide = painter.fontMetrics().horizontalAdvance(captions_[tile]);
            const double left = CornerOf(tile).x();
            const double x =
                std::clamp((tile_.width() - wide) / 2, -left, std::max(-left, width() - left - wide));
            painter.drawText(QRectF(x, tile_.height() + CaptionGap, wide + 1, CaptionLine),
                             Qt::AlignLeft | Qt::AlignVCenter, captions_[tile]);
        }
        painter.restore();
    }
}

} // namespace pulselark
