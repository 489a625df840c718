#pragma once

#include "export/Paper.h"

#include <QBuffer>

#include <memory>

class QAction;
class QPdfDocument;

namespace quor {

namespace Ui {
class PreviewWindow;
}

/// Shows finished pages as they will be on paper: turn them, look closer, print them.
class PreviewWindow : public PagesWindow {
    Q_OBJECT

  public:
    explicit PreviewWindow(QWidget* parent = nullptr);
    ~PreviewWindow() override;
    PreviewWindow(const PreviewWindow&) = delete;
    PreviewWindow& operator=(const PreviewWindow&) = delete;
    PreviewWindow(PreviewWindow&&) = delete;
    PreviewWindow& operator=(PreviewWindow&&) = delete;

    void setDocument(const PrintableDocument& document) override;

    /// Counted from 0.
    [[nodiscard]] int currentPage() const;
    [[nodiscard]] int pageCount() const;
    /// 1 is the size of the paper.
    [[nodiscard]] double zoom() const;

    void goToPage(int page);
    void zoomIn();
    void zoomOut();
    void fitWidth();
    void fitPage();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void connectActions();
    void setZoom(double zoom);
    void showState();

    std::unique_ptr<Ui::PreviewWindow> m_ui;
    PrintableDocument m_document;
    std::unique_ptr<QBuffer> m_buffer; ///< outlives the pages that read it
    std::unique_ptr<QPdfDocument> m_pages;
    /// In the view while it lets go of others: with no document at all it warns (Qt 6.8).
    QPdfDocument* m_noPages;
};

} // namespace quor
