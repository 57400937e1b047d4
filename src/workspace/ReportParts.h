#pragma once

#include <QAbstractButton>
#include <QLineEdit>

/// What the session document's window is made of.
namespace pulselark {

/// One of two person symbols, `imMF`: a picture and its word, with the round box of a choice.
class ReportSymbol final : public QAbstractButton {
    Q_OBJECT

public:
    ReportSymbol(int symbol, QWidget* parent);

    void SetCaption(const QString& caption);
    QSize sizeHint() const override;

protected:
    void nextCheckState() override {}
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    int symbol_;
};

/// The plate that says that the document is locked: a padlock and a sentence.
class ReportLockPlate final : public QWidget {
    Q_OBJECT

public:
    explicit ReportLockPlate(QWidget* parent);

    void SetCaption(const QString& caption);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString caption_;
};

/// A line of the document. A locked one can be read and copied, not written.
class ReportBox final : public QLineEdit {
    Q_OBJECT

public:
    ReportBox(int field, QWidget* parent);

    /// Shows the text; the cursor stays where it is while the user writes this same text.
    void Show(const std::string& text, bool locked);
};

} // namespace pulselark
