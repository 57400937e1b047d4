#pragma once

#include "base/Numbers.h"

#include <QDialog>

#include <functional>

class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QListView;
class QPushButton;
class QToolButton;

namespace pulselark {

class LanguageItemsModel;

extern Boolean LanguageEditorOpen; ///< the editor is shown

/// The language editor: a reference language to read beside an edited one to write, item by item. It edits
/// `LanguageTable` in memory; `comSave` writes the pack. A row of the lists is an item of the table.
class frmLanguage final : public QDialog {
    Q_OBJECT

public:
    /// `languageChanged` is called after another language came into use.
    frmLanguage(QWidget* owner, std::function<void()> languageChanged);
    ~frmLanguage() override;

    /// Sets all texts of the window in the language in use.
    void Retranslate();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void Build();
    void LayOut();
    void Connect();

    void ShowReference(int language);
    void ShowEdition(int language);
    void ShowItem();
    void ShowHint(const QString& passing = QString());
    void FillLanguages(QComboBox* list) const;
    void BuildCharacters();
    void StepTo(int item);

    void Apply();
    void ApplyEdition();
    void GoToEmpty();
    void Save();

    std::function<void()> languageChanged_;
    int reference_ = 0;
    int edition_ = 1;
    int item_ = 0;
    bool unsaved_ = false;
    LanguageItemsModel* referenceItems_;
    LanguageItemsModel* editionItems_;
    QLabel* title_ = nullptr;
    QLabel* referenceHead_ = nullptr;
    QLabel* editionHead_ = nullptr;
    QLabel* referenceName_ = nullptr;
    QLabel* editionName_ = nullptr;
    QLabel* editor_ = nullptr;
    QLabel* packNote_ = nullptr;
    QLabel* characterNote_ = nullptr;
    QLabel* hint_ = nullptr;
    QComboBox* referenceLanguages_ = nullptr;
    QComboBox* editionLanguages_ = nullptr;
    QListView* referenceList_ = nullptr;
    QListView* editionList_ = nullptr;
    QLineEdit* edit_ = nullptr;
    QWidget* characters_ = nullptr;
    QGridLayout* characterGrid_ = nullptr;
    QPushButton* default_ = nullptr;
    QPushButton* current_ = nullptr;
    QPushButton* apply_ = nullptr;
    QPushButton* applyEdition_ = nullptr;
    QPushButton* save_ = nullptr;
    QPushButton* close_ = nullptr;
    QPushButton* go_ = nullptr;
};

} // namespace pulselark
