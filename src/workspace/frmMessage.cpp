#include "workspace/frmMessage.h"

#include "platform/Messages.h"
#include "session/LanguageTable.h"
#include "workspace/Icons.h"
#include "workspace/Look.h"
#include "workspace/Texts.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QVBoxLayout>

#include <array>

namespace pulselark {

namespace {

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

QPixmap Sign(Icon icon, double density) {
    QPixmap pixmap(QSize(32, 32) * density);
    pixmap.setDevicePixelRatio(density);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    PaintIcon(painter, icon, QRectF(0, 0, 32, 32), FormColour::Teal);
    return pixmap;
}

QString StyleOfForm() {
    return QString("QDialog { background: %1; } QLabel { color: %2; }"
                   "QPushButton { background: %3; color: %2; border: 1px solid %4; border-radius: 6px; "
                   "min-height: 34px;"
                   " min-width: 56px; padding: 0 16px; }"
                   "QPushButton:hover { background: #EEF4F1; } QPushButton:pressed { background: #DDE8E4; }"
                   "QPushButton:default { background: %5; color: white; border-color: %5; }"
                   "QPushButton:focus { border: 2px solid %6; }")
        .arg(FormColour::Paper.name(), FormColour::Ink.name(), FormColour::Card.name(),
             FormColour::Edge.name(), FormColour::Teal.name(), FormColour::Focus.name());
}

} // namespace

int ShowMessageWindow(QWidget* owner, const QString& text, int buttons) {
    QDialog dialog(owner);
    dialog.setObjectName("frmMessage");
    dialog.setAccessibleName(text);
    dialog.setWindowTitle(ProgramTitle);
    dialog.setStyleSheet(StyleOfForm());
    dialog.setFont(TextFont(13));

    auto* label = new QLabel(text, &dialog);
    label->setObjectName("labMessage");
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* sign = new QLabel(&dialog);
    sign->setObjectName("imMessage");
    sign->setAccessibleName(Text((buttons & ButtonYes) != 0 ? TextSignQuestion : TextSignInformation));
    sign->setPixmap(
        Sign((buttons & ButtonYes) != 0 ? Icon::Question : Icon::Information, dialog.devicePixelRatioF()));
    auto* words = new QHBoxLayout;
    words->setSpacing(16);
    words->addWidget(sign, 0, Qt::AlignTop);
    words->addWidget(label, 1);

    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    row->addStretch(1);
    QPushButton* last = nullptr;
    for (const ButtonKind& kind : Kinds) {
        if ((buttons & kind.Code) == 0)
            continue;
        const std::string& caption = LanguageText(kind.Text);
        auto* button =
            new QPushButton(caption.empty() ? kind.Fallback : QString::fromStdString(caption), &dialog);
        button->setObjectName(kind.Name);
        button->setFont(TextFont(13, 500));
        QObject::connect(button, &QPushButton::clicked, &dialog,
                         [&dialog, code = kind.Code] { dialog.done(code); });
        row->addWidget(button);
        last = button;
    }
    if (last != nullptr) {
        last->setDefault(true);
        last->setFocus();
    }

    auto* layout = new QVBoxLayout(&dialog);
    layout->setContentsMargins(24, 24, 24, 24);
    layout->setSpacing(24);
    layout->addLayout(words);
    layout->addLayout(row);
    dialog.setFixedWidth(400);
    const int pressed = dialog.exec();
    return pressed > 0 ? pressed : MostCarefulButton(buttons);
}

} // namespace pulselark
