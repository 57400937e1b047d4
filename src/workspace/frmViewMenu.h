#pragma once

#include <QMenu>

#include <functional>

class QActionGroup;

namespace pulselark {

/// The view menu: colour set, solid graphs, history style and averaging, what the panels print. Each choice
/// takes effect at once.
class frmViewMenu final : public QMenu {
    Q_OBJECT

public:
    /// `lookChanged` is called after a choice that changes colours or places, `drawn` after any other.
    frmViewMenu(QWidget* parent, std::function<void()> lookChanged, std::function<void()> drawn);

private:
    /// A group of entries of which one is marked.
    QActionGroup* NewGroup();
    void AddColourSets();
    void AddHistoryStyles();
    void AddAveraging();
    void AddToggle(int text, const char* name, short& value, const std::function<void()>& then);
    /// Brings the marks in line with the settings.
    void ShowMarks();

    std::function<void()> lookChanged_;
    std::function<void()> drawn_;
    QList<std::function<void()>> marks_;
    QList<QActionGroup*> groups_;
};

/// The style of a menu in the colours of the scheme in use.
QString MenuStyle();

} // namespace pulselark
