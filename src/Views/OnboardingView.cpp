// SPDX-License-Identifier: MIT
#include "OnboardingView.h"

#include "AppState.h"
#include "Layout.h"
#include "PagedView.h"
#include "PlainButton.h"
#include "Plate.h"
#include "PushButton.h"
#include "SymbolView.h"
#include "TextLabel.h"

#include <QBoxLayout>
#include <QKeyEvent>

#include <utility>

namespace sablequill {
namespace {

constexpr QSize viewSize(480, 420);
constexpr int pageHeight = 340;
constexpr int lastPage = 2;
constexpr double symbolSize = 56;
constexpr int tipPadding = 40;
constexpr int tipLabelWidth = 72;

QWidget* pageSymbol(const QString& name, Ink ink, int topPadding)
{
    return padded(
        {0, topPadding, 0, 0}, column(0, {new SymbolView({name, symbolSize, QFont::Light}, ink)}));
}

TextLabel* pageTitle(const QString& text)
{
    return new TextLabel(text, TextStyles::title.weighted(QFont::DemiBold));
}

QWidget* centeredText(const QString& text, TextStyle style, int horizontalPadding)
{
    auto* label = new TextLabel(text, style, {InkRole::secondary}, TextLabel::Lines::many);
    label->setAlignment(Qt::AlignHCenter);
    label->wrapAt(viewSize.width() - 2 * horizontalPadding);
    return padded(insets(horizontalPadding, 0), column(0, {label}));
}

PushButton* prominentButton(const QString& title, std::function<void()> action)
{
    return named(title, title,
        new PushButton(title, PushButton::Style::borderedProminent,
            PushButton::ControlSize::regular, std::move(action)));
}

/// The page's content at the top of the page.
QWidget* page(const QString& name, std::initializer_list<QWidget*> children)
{
    auto* content = column(16, children);
    static_cast<QBoxLayout*>(content->layout())->addStretch();
    content->setObjectName(name);
    return content;
}

} // namespace

OnboardingView::OnboardingView(AppState& appState)
    : appState(appState)
{
    setObjectName(QStringLiteral("onboardingView"));
    setAccessibleName(tr("Guide"));
    setFixedSize(viewSize);
    setFocusPolicy(Qt::ClickFocus);
    pages = new PagedView({welcomePage(), mirkModePage(), shortcutsPage()});
    pages->setFixedHeight(pageHeight);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(pages);
    layout->addWidget(divider());
    layout->addWidget(navigationBar());
    setCurrentPage(0);
}

QWidget* OnboardingView::welcomePage()
{
    return page(QStringLiteral("welcomePage"),
        {
            pageSymbol(QStringLiteral("note.text"), {InkRole::primary, 0.75}, 40),
            pageTitle(QStringLiteral("Welcome to Sablequill")),
            centeredText(QStringLiteral("A floating teleprompter for calls, podcasts, Loom "
                                        "recordings, and presentations."),
                TextStyles::body, 40),
        });
}

QWidget* OnboardingView::mirkModePage()
{
    return page(QStringLiteral("mirkModePage"),
        {
            pageSymbol(QStringLiteral("eye.slash.fill"), {InkRole::green}, 40),
            pageTitle(QStringLiteral("Mirk Mode")),
            centeredText(
                QStringLiteral("Mirk mode keeps your notes on a separate display when possible.\n"
                               "Share your presentation screen — not the Sablequill screen."),
                TextStyles::callout, 32),
            padded({tipPadding, 8, tipPadding, 0},
                column(8,
                    {
                        mirkTipRow(QStringLiteral("2 monitors"),
                            QStringLiteral("Sablequill moves to Display 2. Share Display 1 only.")),
                        mirkTipRow(QStringLiteral("1 monitor"),
                            QStringLiteral("Share a specific window — not Entire Screen.")),
                    },
                    HorizontalAlignment::leading)),
            padded({0, 4, 0, 0},
                row(8,
                    {
                        new SymbolView({QStringLiteral("checkmark.circle.fill")}, {InkRole::green}),
                        new TextLabel(QStringLiteral("Enabled by default"), TextStyles::callout),
                    })),
        });
}

QWidget* OnboardingView::shortcutsPage()
{
    return page(QStringLiteral("shortcutsPage"),
        {
            pageSymbol(QStringLiteral("command"), {InkRole::primary, 0.75}, 32),
            pageTitle(QStringLiteral("Keyboard Shortcuts")),
            padded({60, 8, 60, 0},
                column(10,
                    {
                        shortcutRow(QStringLiteral("Toggle overlay"), QStringLiteral("⌘⇧G")),
                        shortcutRow(QStringLiteral("Quick open"), QStringLiteral("⌘⇧O")),
                        shortcutRow(QStringLiteral("Previous note"), QStringLiteral("⌘⇧↑")),
                        shortcutRow(QStringLiteral("Next note"), QStringLiteral("⌘⇧↓")),
                    },
                    HorizontalAlignment::leading)),
        });
}

QWidget* OnboardingView::mirkTipRow(const QString& label, const QString& text)
{
    auto* heading = new TextLabel(label, TextStyles::caption.weighted(QFont::DemiBold));
    heading->setFixedWidth(tipLabelWidth);
    auto* body =
        new TextLabel(text, TextStyles::caption, {InkRole::secondary}, TextLabel::Lines::many);
    body->wrapAt(viewSize.width() - 2 * tipPadding - tipLabelWidth - 8);
    return row(8, {heading, body}, VerticalAlignment::top);
}

QWidget* OnboardingView::shortcutRow(const QString& action, const QString& keys)
{
    auto* label = new TextLabel(keys, TextStyles::body);
    label->setMonospacedDesign();
    // All on plates of the same width.
    label->reserve(QStringLiteral("⌘⇧↑"));
    label->setAlignment(Qt::AlignCenter);
    return row(defaultSpacing,
        {
            new TextLabel(action, TextStyles::body, {InkRole::secondary}),
            spacer(),
            new Plate({InkRole::primary, 0.06}, 6, insets(8, 4), label),
        });
}

QWidget* OnboardingView::navigationBar()
{
    const QString back = QStringLiteral("Back");
    const QString next = QStringLiteral("Continue");
    const QString finish = QStringLiteral("Get Started");
    backButton = named(back, back,
        new PlainButton(new TextLabel(back), {}, [this] { setCurrentPage(currentPage() - 1); }));
    continueButton = prominentButton(next, [this] { setCurrentPage(currentPage() + 1); });
    getStartedButton = prominentButton(finish, [this] { appState.completeOnboarding(); });
    for (QWidget* button :
        std::initializer_list<QWidget*>{backButton, continueButton, getStartedButton})
        button->installEventFilter(this);
    return padded(
        insets(20), row(defaultSpacing, {backButton, spacer(), continueButton, getStartedButton}));
}

int OnboardingView::currentPage() const
{
    return pages->currentPage();
}

void OnboardingView::setCurrentPage(int page)
{
    pages->setCurrentPage(page);
    backButton->setVisible(currentPage() > 0);
    const bool isLast = currentPage() == lastPage;
    PushButton* forward = isLast ? getStartedButton : continueButton;
    PushButton* other = isLast ? continueButton : getStartedButton;
    forward->show();
    // The keyboard stays on the button that leads on, and does not fall to the one that leads back.
    if (other->hasFocus())
        forward->setFocus(Qt::TabFocusReason);
    other->hide();
}

void OnboardingView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    // So that the keys work before anything in the guide was pressed.
    setFocus(Qt::OtherFocusReason);
}

bool OnboardingView::eventFilter(QObject* button, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(button, event);
    // A button takes the arrow keys to move the focus.
    auto* press = static_cast<QKeyEvent*>(event);
    const bool isArrow = press->key() == Qt::Key_Left || press->key() == Qt::Key_Right;
    if (isArrow)
        keyPressEvent(press);
    return isArrow;
}

void OnboardingView::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Left:
        setCurrentPage(currentPage() - 1);
        break;
    case Qt::Key_Right:
        setCurrentPage(currentPage() + 1);
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        (currentPage() == lastPage ? getStartedButton : continueButton)->click();
        break;
    case Qt::Key_Escape:
        Q_EMIT dismissed();
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

} // namespace sablequill
