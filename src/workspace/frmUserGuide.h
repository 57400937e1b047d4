#pragma once

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;
class QTextBrowser;

namespace pulselark {

/// The folder of the guide's pages: beside the program in a build tree, in share/ of an installation; empty
/// if they are in neither.
QString GuideFolder();

/// The user guide: local pages in the program, with back, forward, contents and a search in the page.
class frmUserGuide final : public QDialog {
    Q_OBJECT

public:
    /// `folder` holds index.html and the pages it leads to.
    frmUserGuide(QWidget* owner, const QString& folder);

    void Retranslate();
    void ShowContents();

private:
    void Build();
    void LayOut();
    void Connect();
    /// Goes to the next place of the search text, or the one before, round the page's end.
    void Search(bool backward);
    void ShowPlace();

    QString folder_;
    QTextBrowser* page_ = nullptr;
    QPushButton* back_ = nullptr;
    QPushButton* forward_ = nullptr;
    QPushButton* contents_ = nullptr;
    QLineEdit* words_ = nullptr;
    QPushButton* search_ = nullptr;
    QLabel* found_ = nullptr;
    QPushButton* close_ = nullptr;
};

} // namespace pulselark
