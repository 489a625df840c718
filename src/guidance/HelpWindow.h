#pragma once

#include <QMainWindow>

#include <memory>

class QLabel;
class QLineEdit;
class QListWidget;
class QTabWidget;

namespace quor {

class HelpBrowser;
class HelpCollection;

/// The window of the help: contents, index and search at the left, the page at the right.
///
/// It belongs to no other window and stays usable while a modal dialog is open, whichever was there
/// first, so that one can read about a dialog while filling it in. It is deleted when it closes and
/// remembers nothing.
class HelpWindow : public QMainWindow {
    Q_OBJECT

  public:
    /// @param collection a readable one. Who lets somebody search in it keeps it until the last
    ///   search has ended, also when the window is gone.
    explicit HelpWindow(std::shared_ptr<HelpCollection> collection);
    ~HelpWindow() override;
    HelpWindow(const HelpWindow&) = delete;
    HelpWindow& operator=(const HelpWindow&) = delete;
    HelpWindow(HelpWindow&&) = delete;
    HelpWindow& operator=(HelpWindow&&) = delete;

    /// @param page "1nuovo.html"; empty for the start page
    void showPage(const QString& page);

  protected:
    bool event(QEvent* event) override;

  private:
    void buildToolbar();
    [[nodiscard]] QWidget* buildContents();
    [[nodiscard]] QWidget* buildIndex();
    [[nodiscard]] QWidget* buildSearch();
    [[nodiscard]] QWidget* buildPage();

    void follow(const QUrl& url);
    void selectInContents(const QUrl& page);

    void openFindBar();
    void closeFindBar();
    void findInPage(bool backward);

    void search();
    void showResults(int count);

    void keepUsable();

    std::shared_ptr<HelpCollection> m_collection;
    HelpBrowser* m_browser = nullptr;
    QTabWidget* m_tabs = nullptr;
    QWidget* m_findBar = nullptr;
    QLineEdit* m_findText = nullptr;
    QLabel* m_findNote = nullptr;
    QLineEdit* m_searchText = nullptr;
    QLabel* m_searchNote = nullptr;
    QListWidget* m_results = nullptr;
};

} // namespace quor
