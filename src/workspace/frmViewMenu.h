#pragma once

#include <QMenu>

#include <functional>

class QActionGroup;

namespace pulselark {

/// The view menu: the seven panels with their marks, the layout's lock, grid and configurations with a small
/// preview, full screen, colour set, graphs and history, and the preset. Each choice takes effect at once.
class frmViewMenu final : public QMenu {
    Q_OBJECT

public:
    /// `lookChanged` is called after a choice that changes colours or places; `run` takes a routine through
    /// the core and shows the outcome.
    frmViewMenu(QWidget* parent, std::function<void()> lookChanged,
                std::function<void(const std::function<void()>&)> run);

    /// Sets all texts in the language in use.
    void Retranslate();

private:
    void AddPanels();
    void AddMainView();
    void AddLayout();
    void AddTidalView();
    void AddGames();
    void AddColourSets();
    void AddBackground();
    void AddHistoryStyles();
    void AddAveraging();
    QMenu* AddSubmenu(int text, const char* name, int before = 0);
    QAction* AddEntry(QMenu* menu, int text, const QString& name, std::function<void()> routine);
    QAction* AddToggle(int text, const char* name, short& value, std::function<void()> then);
    /// Brings the marks in line with the settings.
    void ShowMarks();
    void ListConfigurations();

    std::function<void()> lookChanged_;
    std::function<void(const std::function<void()>&)> run_;
    QList<std::function<void()>> marks_;
    QList<std::function<void()>> texts_;
    QMenu* configurations_ = nullptr;
};

} // namespace pulselark
