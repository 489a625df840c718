#pragma once

#include <QTextBrowser>

class QHelpEngine;

namespace quor {

/// Shows the pages of a help collection. A page that is not there becomes a page that says so; an
/// address outside the collection is not followed.
class HelpBrowser : public QTextBrowser {
    Q_OBJECT

  public:
    /// @param engine outlives the browser
    explicit HelpBrowser(QHelpEngine& engine, QWidget* parent = nullptr);

    QVariant loadResource(int type, const QUrl& name) override;

    /// The size of the text as it was at first.
    void resetZoom();

  protected:
    void inputMethodEvent(QInputMethodEvent* event) override;
    void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;

  private:
    [[nodiscard]] QVariant loadPicture(const QByteArray& bytes) const;

    QHelpEngine& m_engine;
    qreal m_textSize;
};

} // namespace quor
