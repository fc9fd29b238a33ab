// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace sablequill {

class AppState;
class PagedView;
class PlainButton;
class PushButton;

/// The first-run guide: three pages, and the button that ends it for good.
class OnboardingView : public QWidget {
    Q_OBJECT

public:
    /// The application state outlives the view.
    explicit OnboardingView(AppState& appState);

    int currentPage() const;
    void setCurrentPage(int page);

Q_SIGNALS:
    /// The user asked to close the guide without finishing it.
    void dismissed();

protected:
    bool eventFilter(QObject* button, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* welcomePage();
    QWidget* mirkModePage();
    QWidget* shortcutsPage();
    QWidget* navigationBar();
    QWidget* mirkTipRow(const QString& label, const QString& text);
    QWidget* shortcutRow(const QString& action, const QString& keys);

    AppState& appState;
    PagedView* pages = nullptr;
    PlainButton* backButton = nullptr;
    PushButton* continueButton = nullptr;
    PushButton* getStartedButton = nullptr;
};

} // namespace sablequill
