#include "workspace/frmODS.h"

#include "images/PictureFiles.h"
#include "persistence/FileMessages.h"
#include "session/LanguageTable.h"
#include "session/MainControls.h"
#include "workspace/FileDialog.h"
#include "workspace/FocusRing.h"
#include "workspace/Look.h"
#include "workspace/SideWindowParts.h"
#include "workspace/Texts.h"

#include <QClipboard>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStandardPaths>

namespace pulselark {

namespace {

/// The picture in the middle, as large as fits, never larger than it is.
class PictureView final : public QWidget {
public:
    PictureView(const QPixmap& picture, QWidget* parent) : QWidget(parent), picture_(picture) {
        setObjectName("picODS");
        setMinimumSize(320, 200);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
        painter.setPen(FormColour::Rule);
        painter.setBrush(FormColour::Card);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 8, 8);
        if (picture_.isNull())
            return;
        constexpr int Margin = 12;
        const QSizeF room(width() - 2 * Margin, height() - 2 * Margin);
        const QSizeF whole = picture_.deviceIndependentSize();
        const QSizeF shown = whole.scaled(room, Qt::KeepAspectRatio).boundedTo(whole);
        painter.drawPixmap(
            QRectF(QPointF((width() - shown.width()) / 2, (height() - shown.height()) / 2), shown), picture_,
            QRectF(picture_.rect()));
    }

private:
    const QPixmap& picture_; // the window's
};

} // namespace

frmODS::frmODS(QWidget* owner)
    : QDialog(owner), ChooseName([this] { return AskForName(); }), view_(new PictureView(picture_, this)),
      told_(new QLabel(this)), save_(NewSideButton("comSave", this)), copy_(NewSideButton("comCopy", this)),
      close_(NewSideButton("comClose", this)) {
    setObjectName("frmODS");
    setStyleSheet(SideWindowStyle());
    setFont(TextFont(13));
    told_->setObjectName("labHint");
    told_->setProperty("hint", true);
    told_->setTextFormat(Qt::PlainText);
    told_->setWordWrap(true);
    MakeMainButton(save_);
    connect(save_, &QPushButton::clicked, this, &frmODS::Save);
    connect(copy_, &QPushButton::clicked, this, &frmODS::Copy);
    connect(close_, &QPushButton::clicked, this, &QWidget::hide);
    save_->setShortcut(QKeySequence::Save);
    copy_->setShortcut(QKeySequence::Copy);
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    row->addWidget(told_, 1);
    for (QPushButton* button : {close_, copy_, save_})
        row->addWidget(button);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 16, 24, 20);
    layout->setSpacing(12);
    layout->addWidget(view_, 1);
    layout->addLayout(row);
    Retranslate();
    FocusRing::Of(this).WatchSideWindow();
    resize(RoomFor(*this, QSize(960, 680)));
}

void frmODS::Retranslate() {
    QString title = TextOr(TextMenuSnapshot, "Snapshot");
    title.remove(QString::fromUtf8("…"));
    setWindowTitle(name_.isEmpty() ? title : title + ": " + name_);
    setAccessibleName(windowTitle());
    view_->setAccessibleName(windowTitle());
    SetCaption(save_, TextOr(TextEditorSave, "Save"));
    SetCaption(copy_, WordsOf(SideTextCopy));
    SetCaption(close_, TextOr(TextClose, "Close"));
    // A caption takes a button's keys away.
    save_->setShortcut(QKeySequence::Save);
    copy_->setShortcut(QKeySequence::Copy);
    save_->setToolTip(QKeySequence(QKeySequence::Save).toString(QKeySequence::NativeText));
    copy_->setToolTip(QKeySequence(QKeySequence::Copy).toString(QKeySequence::NativeText));
}

void frmODS::ShowPicture(const QPixmap& picture, const QString& name) {
    picture_ = picture;
    name_ = name;
    told_->setText(QString("%1 × %2").arg(picture.width()).arg(picture.height()));
    save_->setEnabled(!picture.isNull());
    copy_->setEnabled(!picture.isNull());
    Retranslate();
    view_->update();
    show();
    raise();
    activateWindow();
}

QString frmODS::AskForName() {
    QString start = name_.isEmpty() ? QString("PulseLark") : "PulseLark " + name_;
    start.replace('/', '-');
    QFileDialog dialog(this, windowTitle(),
                       QStandardPaths::writableLocation(QStandardPaths::PicturesLocation));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters(PictureFilters());
    dialog.selectFile(start + ".png");
    // The question about replacing a file is asked for the name as it will be.
    dialog.setDefaultSuffix("png");
    connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog](const QString& filter) {
        const QString ending = filter.section("*.", 1, 1).section(' ', 0, 0).remove(')');
        dialog.setDefaultSuffix(ending);
        const QFileInfo chosen(dialog.selectedFiles().value(0));
        if (!chosen.completeBaseName().isEmpty() && !chosen.isDir())
            dialog.selectFile(chosen.completeBaseName() + "." + ending);
    });
    return RunFileDialog(dialog);
}

void frmODS::Save() {
    const QString name = ChooseName();
    if (name.isEmpty())
        return;
    const Integer failure = SavePictureAs(picture_.toImage(), name);
    if (failure != 0) {
        ShowFileFailure(LanguageText(TextSaveFailed) + "_1 ", {failure, 0}, name.toStdString(),
                        WordsOf(SideTextUnknownPicture).toStdString());
        return;
    }
    const QString told = QFileInfo(name).fileName() + ": " + WordsOf(SideTextSaved);
    told_->setText(told);
    ShowStatus(told.toStdString());
}

void frmODS::Copy() {
    QGuiApplication::clipboard()->setPixmap(picture_);
}

} // namespace pulselark
