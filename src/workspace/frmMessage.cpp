#include "workspace/frmMessage.h"

#include "session/LanguageTable.h"
#include "workspace/FloatingForm.h"
#include "workspace/FocusRing.h"
#include "workspace/Icons.h"
#include "workspace/Look.h"
#include "workspace/SideWindowParts.h"
#include "workspace/Texts.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QTextLayout>
#include <QVBoxLayout>

#include <array>
#include <cmath>

namespace pulselark {

namespace {

constexpr int Width = 400;
constexpr int Padding = 24;
constexpr int SignSize = 32;
constexpr int SignGap = 16;

struct ButtonKind {
    int Code;
    int Text;
    const char* Fallback; // a window must have words on its buttons even without a language pack
    const char* Name;
};
// From left to right; the last one shown is the main one.
constexpr std::array<ButtonKind, 4> Kinds{{{ButtonCancel, TextCancel, "Cancel", "comCancel"},
                                           {ButtonNo, TextNo, "No", "comNo"},
                                           {ButtonYes, TextYes, "Yes", "comYes"},
                                           {ButtonOK, TextOk, "OK", "comOK"}}};

struct SignOfKind {
    Icon Shape;
    QColor Colour;
    int Text;
    const char* Fallback;
};

const SignOfKind& SignFor(MessageKind kind) {
    static const std::array<SignOfKind, 3> signs{{
        {Icon::Information, FormColour::Teal, TextSignInformation, "Information"},
        {Icon::Question, FormColour::Teal, TextSignQuestion, "Question"},
        {Icon::Warning, FormColour::Danger, TextSignWarning, "Warning"},
    }};
    return signs[static_cast<std::size_t>(kind)];
}

/// The sign of a message.
class MessageSign final : public QWidget {
public:
    MessageSign(const SignOfKind& sign, QWidget* parent) : QWidget(parent), sign_(sign) {
        setObjectName("imMessage");
        setAccessibleName(TextOr(sign.Text, sign.Fallback));
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFixedSize(SignSize, SignSize);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        PaintIcon(painter, sign_.Shape, rect(), sign_.Colour);
    }

private:
    const SignOfKind& sign_;
};

/// The words of a message, a line every 20 pixels; a name too long for its line breaks anywhere.
class MessageText final : public QLabel {
public:
    MessageText(const QString& text, int width, QWidget* parent) : QLabel(text, parent) {
        setObjectName("labMessage");
        setFont(TextFont(13));
        setTextFormat(Qt::PlainText);
        setAttribute(Qt::WA_TransparentForMouseEvents); // the window is dragged by them
        setFixedWidth(width);
        setFixedHeight(std::max(SignSize, LayOut(nullptr)));
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setPen(FormColour::Ink);
        LayOut(&painter);
    }

private:
    // Returns the height of all lines.
    int LayOut(QPainter* painter) const {
        constexpr int LineHeight = 20;
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        QString words = text();
        QTextLayout layout(words.replace('\n', QChar::LineSeparator), font());
        layout.setTextOption(option);
        layout.beginLayout();
        int lines = 0;
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(width());
            line.setPosition(QPointF(0, std::round(lines * LineHeight + (LineHeight - line.height()) / 2)));
            ++lines;
        }
        layout.endLayout();
        const int high = lines * LineHeight;
        // A single line stands in the middle of its sign.
        if (painter != nullptr)
            layout.draw(painter, QPointF(0, lines == 1 ? (SignSize - high) / 2.0 : 0));
        return high;
    }
};

class MessageForm final : public FloatingForm {
public:
    MessageForm(QWidget* owner, const QString& text, int buttons, const MessageManner& manner)
        : FloatingForm(owner, "frmMessage"), text_(text) {
        const SignOfKind& sign = SignFor(manner.Kind);
        setWindowTitle(ProgramTitle); // for the desktop's list of windows
        setAccessibleName(TextOr(sign.Text, sign.Fallback));
        setAccessibleDescription(text);
        setStyleSheet(SideWindowStyle());
        auto* words = new QHBoxLayout;
        words->setSpacing(SignGap);
        words->addWidget(new MessageSign(sign, this), 0, Qt::AlignTop);
        words->addWidget(new MessageText(text, Width - 2 * Padding - SignSize - SignGap, this), 1);
        auto* layout = new QVBoxLayout(this);
        layout->setContentsMargins(Padding, Padding, Padding, Padding);
        layout->setSpacing(Padding);
        layout->addLayout(words);
        layout->addLayout(NewButtons(buttons, manner.Destructive));
        setFixedWidth(Width);
    }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->matches(QKeySequence::Copy))
            QGuiApplication::clipboard()->setText(text_);
        else
            FloatingForm::keyPressEvent(event);
    }

private:
    QHBoxLayout* NewButtons(int buttons, int destructive) {
        auto* row = new QHBoxLayout;
        row->setSpacing(8);
        row->addStretch(1);
        QPushButton* main = nullptr;
        QPushButton* careful = nullptr;
        for (const ButtonKind& kind : Kinds) {
            if ((buttons & kind.Code) == 0)
                continue;
            auto* button = NewSideButton(kind.Name, this);
            SetCaption(button, TextOr(kind.Text, kind.Fallback));
            button->setAutoDefault(true); // Enter presses the one that has the keyboard
            connect(button, &QPushButton::clicked, this, [this, code = kind.Code] { done(code); });
            FocusRing::Of(this).Watch(button, 6);
            row->addWidget(button);
            if (kind.Code == destructive)
                MakeDestructiveButton(button);
            if (kind.Code == MostCarefulButton(buttons))
                careful = button;
            main = kind.Code == destructive ? careful : button;
        }
        if (main != nullptr) {
            MakeMainButton(main);
            main->setDefault(true);
            main->setFocus();
        }
        return row;
    }

    QString text_;
};

} // namespace

int ShowMessageWindow(QWidget* owner, const QString& text, int buttons, const MessageManner& manner) {
    MessageForm form(owner, text, buttons, manner);
    const int pressed = form.exec();
    return pressed > 0 ? pressed : MostCarefulButton(buttons);
}

} // namespace pulselark
