#include "workspace/FormWindow.h"

#include "workspace/FocusRing.h"
#include "workspace/FormControls.h"
#include "workspace/Look.h"
#include "workspace/SideWindowParts.h"
#include "workspace/Texts.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>

namespace pulselark {

namespace {

constexpr int TitleRow = 48;
constexpr int ColumnWidth = 336;
constexpr int CardPadding = 20; // left and right

QString FormStyle() {
    return QString("QLabel { color: %1; background: transparent; } QLabel[hint=\"true\"] { color: %2; }"
                   "QScrollArea, #FormBody { background: transparent; border: none; }"
                   "QScrollBar { background: transparent; border: none; margin: 2px; }"
                   "QScrollBar:vertical { width: 12px; } QScrollBar:horizontal { height: 12px; }"
                   "QScrollBar::handle { background: %3; border-radius: 4px; min-height: 28px;"
                   " min-width: 28px; }"
                   "QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }"
                   "QScrollBar::add-page, QScrollBar::sub-page, QAbstractScrollArea::corner {"
                   " background: transparent; }")
        .arg(FormColour::Ink.name(), FormColour::Hint.name(), FormColour::Edge.name());
}

} // namespace

// ---- Card ----

FormCard::FormCard(QWidget* parent)
    : QWidget(parent), title_(new QLabel(this)), hint_(new QLabel(this)), rows_(new QVBoxLayout) {
    constexpr int TitleHeight = 28;
    title_->setFont(TextFont(14, 500));
    title_->setFixedHeight(TitleHeight);
    hint_->setFont(TextFont(12));
    hint_->setProperty("hint", true);
    hint_->hide();
    auto* head = new QHBoxLayout;
    head->addWidget(title_, 1);
    head->addWidget(hint_);
    rows_->setContentsMargins(CardPadding - ToggleRow::Padding, 12, CardPadding - ToggleRow::Padding, 16);
    rows_->setSpacing(0);
    setLayout(rows_);
    Add(head);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void FormCard::SetTitle(const QString& title) {
    title_->setText(title);
    title_->setVisible(!title.isEmpty());
    setAccessibleName(title);
}

void FormCard::SetHint(const QString& hint) {
    hint_->setText(hint);
    hint_->setVisible(!hint.isEmpty());
}

void FormCard::Add(QWidget* row) {
    auto* layout = new QHBoxLayout;
    layout->addWidget(row);
    Add(layout);
}

void FormCard::Add(QLayout* row) {
    row->setContentsMargins(ToggleRow::Padding, 0, ToggleRow::Padding, 0);
    rows_->addLayout(row);
}

void FormCard::AddToggle(QWidget* toggle, int indent) {
    auto* layout = new QHBoxLayout;
    layout->setContentsMargins(indent, 0, 0, 0);
    layout->addWidget(toggle);
    rows_->addLayout(layout);
}

void FormCard::AddSpace(int pixels) {
    rows_->addSpacing(pixels);
}

void FormCard::AddStretch() {
    rows_->addStretch(1);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

void FormCard::AddRule() {
    auto* rule = new QWidget(this);
    rule->setFixedHeight(1);
    rule->setAutoFillBackground(true);
    QPalette palette = rule->palette();
    palette.setColor(QPalette::Window, FormColour::Rule);
    rule->setPalette(palette);
    Add(rule);
}

void FormCard::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(FormColour::Rule, 1));
    painter.setBrush(FormColour::Card);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 8, 8);
}

// ---- Window ----

FormWindow::FormWindow(QWidget* owner, const QString& name)
    : FloatingForm(owner, name), title_(new QLabel(this)),
      close_(new ActionButton("picClose", ActionButton::Sign::Close, this)), scroll_(new QScrollArea(this)),
      body_(new QWidget), ring_(new FocusRing(this)) {
    SetTitleRow(TitleRow);
    setStyleSheet(FormStyle());
    setFont(TextFont(13));
    title_->setFont(TextFont(16, 500));
    close_->SetBare(true);
    ring_->Watch(close_, 6);
    connect(close_, &QAbstractButton::clicked, this, &QWidget::hide);

    auto* head = new QHBoxLayout;
    head->setContentsMargins(24, 0, 12, 0);
    head->addWidget(title_, 1);
    head->addWidget(close_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto* headRow = new QWidget(this);
    headRow->setFixedHeight(TitleRow);
    headRow->setLayout(head);
    layout->addWidget(headRow);

    body_->setObjectName("FormBody");
    auto* columns = new QHBoxLayout(body_);
    columns->setContentsMargins(24, 16, 24, 24);
    columns->setSpacing(16);
    scroll_->setFocusPolicy(Qt::NoFocus);
    scroll_->setFrameShape(QFrame::NoFrame);
    scroll_->setWidgetResizable(true);
    scroll_->viewport()->setAutoFillBackground(false);
    scroll_->setWidget(body_);
    body_->setAutoFillBackground(false);
    layout->addWidget(scroll_, 1);
}

void FormWindow::SetTitle(const QString& title) {
    title_->setText(title);
    setWindowTitle(title);
    setAccessibleName(title);
    close_->SetCaption(TextOr(TextClose, "Close"));
    close_->setToolTip(close_->text() + " (Esc)");
}

QVBoxLayout* FormWindow::AddColumn() {
    auto* column = new QWidget(body_);
    auto* cards = new QVBoxLayout(column);
    cards->setContentsMargins(0, 0, 0, 0);
    cards->setSpacing(12);
    cards->setAlignment(Qt::AlignTop);
    cards->addStrut(ColumnWidth);
    body_->layout()->addWidget(column);
    return cards;
}

QHBoxLayout* FormWindow::AddFoot() {
    foot_ = new QWidget(this);
    auto* row = new QHBoxLayout(foot_);
    row->setContentsMargins(24, 12, 24, 20);
    body_->layout()->setContentsMargins(24, 16, 24, 4);
    layout()->addWidget(foot_);
    return row;
}

void FormWindow::FitToScreen() {
    // New sizes make their way up one floor at a time; here they are wanted now.
    const auto parts = body_->findChildren<QWidget*>();
    for (auto part = parts.rbegin(); part != parts.rend(); ++part) {
        if ((*part)->layout() != nullptr)
            (*part)->layout()->activate();
        (*part)->updateGeometry();
    }
    body_->layout()->activate();
    // What cannot be squeezed may be higher than what would do.
    QSize wanted = body_->sizeHint().expandedTo(body_->minimumSizeHint());
    wanted.rheight() += TitleRow + (foot_ != nullptr ? foot_->sizeHint().height() : 0);
    const int height = RoomFor(*this, wanted).height();
    if (height < wanted.height()) // the scroll bar takes its room from the body
        wanted.rwidth() += scroll_->verticalScrollBar()->sizeHint().width();
    resize(RoomFor(*this, wanted).width(), height);
    if (isVisible())
        KeepOnScreen();
    // The scroll area hears of new sizes only where the window changes its own.
    body_->resize(scroll_->viewport()->size().expandedTo(body_->minimumSizeHint()));
}

void FormWindow::ScrollTo(QWidget* control) {
    scroll_->ensureWidgetVisible(control);
}

} // namespace pulselark
