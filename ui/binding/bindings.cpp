#include "ui/binding/bindings.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPalette>
#include <QPlainTextEdit>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStringList>
#include <functional>
#include <optional>
#include <utility>

#include "ui/platform/qt_text.h"
#include "ui/widgets/style.h"

namespace brevane {

namespace {

// One control tied to one widget. A child of the widget, so it goes with it, and
// the context of every connection, so no edit reaches the control after that.
class Binding final : public QObject {
  public:
    Binding(Control& control, QWidget& widget, std::function<void()> showValue)
        : QObject(&widget),
          control_(control),
          widget_(widget),
          showValue_(std::move(showValue)),
          ownPalette_(widget.testAttribute(Qt::WA_SetPalette) ? std::optional(widget.palette())
                                                              : std::nullopt),
          ownAutoFill_(widget.autoFillBackground()),
          ownStyleSheet_(widget.styleSheet()) {
        watchId_ = control_.watch([this] { show(); });
        show();
    }

    ~Binding() override { control_.unwatch(watchId_); }

    // Hands a widget edit to the control, then shows what the control made of it.
    // The control's handlers may destroy the widget, and this binding with it.
    template <class Apply>
    void edit(Apply&& apply) {
        const QPointer<Binding> alive(this);
        std::forward<Apply>(apply)();
        if (alive) {
            show();
        }
    }

    void show() {
        const QSignalBlocker block(&widget_);
        widget_.setEnabled(control_.enabled());
        if (widget_.isHidden() == control_.visible()) {
            widget_.setVisible(control_.visible());
        }
        const QString tip = qtDisplayText(control_.toolTip());
        if (widget_.toolTip() != tip) {
            widget_.setToolTip(tip);
        }
        showColours();
        showValue_();
    }

  private:
    void showColours() {
        const auto fore = control_.foreColour();
        const auto back = control_.backColour();
        if (fore == shownFore_ && back == shownBack_) {
            return;
        }
        shownFore_ = fore;
        shownBack_ = back;
        // Roles not set here are inherited, so the window's palette still shows
        // through everywhere the control has no colour of its own. A back colour given
        // without a text colour takes black or white text, whichever reads on it.
        const bool hasText = fore.has_value() || back.has_value();
        const QColor text = style::toQColor(fore   ? *fore
                                            : back ? readableTextOn(*back)
                                                   : Colour{0});
        const QColor face = style::toQColor(back.value_or(0));
        QPalette p = ownPalette_ ? *ownPalette_ : QPalette();
        if (hasText) {
            for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
                p.setColor(role, text);
            }
        }
        if (back) {
            for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button}) {
                p.setColor(role, face);
            }
        }
        widget_.setPalette(p);
        widget_.setAutoFillBackground(ownAutoFill_ || back.has_value());
        // A button's face comes from its window's style sheet, which a palette does not
        // reach: its own colours go into a sheet of its own, which wins.
        if (qobject_cast<QAbstractButton*>(&widget_) != nullptr) {
            QString sheet = ownStyleSheet_;
            if (hasText) {
                QString rule;
                if (back) {
                    rule += QStringLiteral("background-color: %1; ").arg(face.name());
                }
                rule += QStringLiteral("color: %1; ").arg(text.name());
                sheet += QStringLiteral("\n%1 { %2}")
                             .arg(QString::fromLatin1(widget_.metaObject()->className()), rule);
            }
            if (widget_.styleSheet() != sheet) {
                widget_.setStyleSheet(sheet);
            }
        }
    }

    Control& control_;
    QWidget& widget_;
    std::function<void()> showValue_;
    Control::WatchId watchId_ = 0;
    std::optional<QPalette> ownPalette_;
    bool ownAutoFill_;
    QString ownStyleSheet_;
    std::optional<Colour> shownFore_;
    std::optional<Colour> shownBack_;
};

// A box that cannot be typed into shows its text as its placeholder: in the colour of
// its text, not dimmed, whatever palette its window takes.
class PlaceholderAsText final : public QObject {
  public:
    explicit PlaceholderAsText(QComboBox& box) : QObject(&box), box_(box) {
        box_.installEventFilter(this);
        follow();
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == &box_ &&
            (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)) {
            follow();
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    void follow() {
        const QColor text = box_.palette().color(QPalette::Text);
        if (box_.palette().color(QPalette::PlaceholderText) != text) {
            // Only this role is the box's own; the others stay its window's.
            QPalette p;
            p.setColor(QPalette::PlaceholderText, text);
            box_.setPalette(p);
        }
    }

    QComboBox& box_;
};

// The letter a button answers to with Alt, kept on the widget so that a caption that
// changes ("Alarm On", "Alarm Off") keeps it where the new caption has it.
constexpr const char* kMnemonicProperty = "brevaneMnemonic";
// A widget whose caption is the user's (a preset's name) takes no letter.
constexpr const char* kNoMnemonicProperty = "brevaneNoMnemonic";

QString withMnemonic(QString text, const QWidget& widget) {
    const QChar letter = widget.property(kMnemonicProperty).toChar();
    if (letter.isNull()) {
        return text;
    }
    const auto at = text.indexOf(letter, 0, Qt::CaseInsensitive);
    if (at >= 0) {
        text.insert(at, QLatin1Char('&'));
    }
    return text;
}

template <class Button>
void showCaption(const Control& control, Button& widget) {
    const QString text = withMnemonic(qtDisplayText(control.caption()), widget);
    if (widget.text() != text) {
        widget.setText(text);
    }
}

void showRange(const RangeControl& control, QAbstractSlider& widget, bool viewInverted) {
    if (widget.minimum() != control.low() || widget.maximum() != control.high()) {
        widget.setRange(control.low(), control.high());
    }
    const bool inverted = (control.min() > control.max()) != viewInverted;
    if (widget.invertedAppearance() != inverted) {
        widget.setInvertedAppearance(inverted);
        widget.setInvertedControls(inverted);
    }
    widget.setSingleStep(control.smallChange());
    widget.setPageStep(control.largeChange());
    if (widget.value() != control.value()) {
        widget.setValue(control.value());
    }
}

template <class RangeKind>
void bindRange(RangeKind& control, QAbstractSlider& widget) {
    const bool viewInverted = widget.invertedAppearance();
    auto* binding = new Binding(control, widget, [&control, &widget, viewInverted] {
        showRange(control, widget, viewInverted);
    });
    QObject::connect(
        &widget, &QAbstractSlider::valueChanged, binding,
        [binding, &control](int value) { binding->edit([&] { control.setValue(value); }); });
}

QString entryText(const QComboBox& widget, int i) {
    return widget.itemText(i);
}

QString entryText(const QListWidget& widget, int i) {
    return widget.item(i)->text();
}

// The entries of a list control, shown only when they differ: rebuilding a list
// loses the user's scroll position and current entry.
template <class ListWidget>
bool sameEntries(const ListControl& control, const ListWidget& widget) {
    if (widget.count() != control.count()) {
        return false;
    }
    for (int i = 0; i < control.count(); ++i) {
        if (entryText(widget, i) != qtText(control.items()[static_cast<std::size_t>(i)])) {
            return false;
        }
    }
    return true;
}

QStringList entries(const ListControl& control) {
    QStringList list;
    list.reserve(control.count());
    for (const auto& item : control.items()) {
        list.append(qtText(item));
    }
    return list;
}

}  // namespace

void bindWidget(Slider& control, QAbstractSlider& widget) {
    bindRange(control, widget);
}

void bindWidget(ScrollBar& control, QScrollBar& widget) {
    // A bar standing for a setting is worked like a slider: Tab reaches it, the arrow
    // keys step it.
    widget.setFocusPolicy(Qt::StrongFocus);
    bindRange(control, widget);
}

void bindWidget(CheckBox& control, QCheckBox& widget) {
    widget.setTristate(false);
    auto* binding = new Binding(control, widget, [&control, &widget] {
        showCaption(control, widget);
        widget.setChecked(control.checked());
    });
    QObject::connect(&widget, &QCheckBox::toggled, binding, [binding, &control](bool on) {
        binding->edit([&] { control.setChecked(on); });
    });
}

void bindWidget(OptionButton& control, QRadioButton& widget) {
    widget.setAutoExclusive(false);
    auto* binding = new Binding(control, widget, [&control, &widget] {
        showCaption(control, widget);
        widget.setChecked(control.value());
    });
    QObject::connect(&widget, &QRadioButton::clicked, binding,
                     [binding, &control] { binding->edit([&] { control.setValue(true); }); });
}

void bindWidget(ToggleButton& control, QPushButton& widget) {
    widget.setCheckable(true);
    auto* binding = new Binding(control, widget, [&control, &widget] {
        showCaption(control, widget);
        widget.setChecked(control.value());
    });
    QObject::connect(&widget, &QPushButton::toggled, binding, [binding, &control](bool down) {
        binding->edit([&] { control.setValue(down); });
    });
}

void bindWidget(CommandButton& control, QPushButton& widget) {
    auto* binding =
        new Binding(control, widget, [&control, &widget] { showCaption(control, widget); });
    QObject::connect(&widget, &QPushButton::clicked, binding,
                     [binding, &control] { binding->edit([&] { control.click(); }); });
}

void bindWidget(TextBox& control, QLineEdit& widget) {
    auto* binding = new Binding(control, widget, [&control, &widget] {
        // Only a real difference is shown: setting the same text would move the
        // cursor to the end while the user types.
        const QString text = qtText(control.text());
        if (widget.text() != text) {
            widget.setText(text);
        }
    });
    QObject::connect(&widget, &QLineEdit::textChanged, binding,
                     [binding, &control](const QString& text) {
                         binding->edit([&] { control.setText(textFromQt(text)); });
                     });
}

void bindWidget(TextBox& control, QPlainTextEdit& widget) {
    widget.setReadOnly(true);
    new Binding(control, widget, [&control, &widget] {
        const QString text = qtDisplayText(control.text());
        if (widget.toPlainText() != text) {
            widget.setPlainText(text);
        }
    });
}

void bindTypedText(TextBox& control, QPlainTextEdit& widget) {
    auto* binding = new Binding(control, widget, [&control, &widget] {
        const QString text = qtDisplayText(control.text());
        if (widget.toPlainText() != text) {
            widget.setPlainText(text);
        }
    });
    QObject::connect(&widget, &QPlainTextEdit::textChanged, binding, [binding, &control, &widget] {
        QString text = widget.toPlainText();
        text.replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
        binding->edit([&] { control.setText(textFromQt(text)); });
    });
}

void bindWidget(TextBox& control, QLabel& widget, const QString& suffix) {
    widget.setTextFormat(Qt::PlainText);
    new Binding(control, widget, [&control, &widget, suffix] {
        const QString text = qtDisplayText(control.text()) + suffix;
        if (widget.text() != text) {
            widget.setText(text);
        }
    });
}

void bindWidget(ComboBox& control, QComboBox& widget) {
    widget.setInsertPolicy(QComboBox::NoInsert);
    if (widget.isEditable()) {
        // What the user typed is the text; completing it would show a text the
        // control does not hold.
        widget.setCompleter(nullptr);
    }
    auto* binding = new Binding(control, widget, [&control, &widget] {
        if (!sameEntries(control, widget)) {
            widget.clear();
            widget.addItems(entries(control));
        }
        // A box that cannot be typed into shows its text as the entry of that text when
        // none is chosen, or else as the box's own text: it is the value, not a hint.
        const int shown = control.listIndex() >= 0 || widget.isEditable()
                              ? control.listIndex()
                              : control.find(control.text());
        if (widget.currentIndex() != shown) {
            widget.setCurrentIndex(shown);
        }
        if (widget.isEditable() && widget.currentText() != qtText(control.text())) {
            widget.setEditText(qtText(control.text()));
        }
        if (!widget.isEditable() && widget.placeholderText() != qtText(control.text())) {
            widget.setPlaceholderText(qtText(control.text()));
        }
    });
    if (!widget.isEditable()) {
        new PlaceholderAsText(widget);
    }
    QObject::connect(
        &widget, &QComboBox::currentIndexChanged, binding,
        [binding, &control](int index) { binding->edit([&] { control.setListIndex(index); }); });
    if (QLineEdit* line = widget.lineEdit()) {
        // Only typing changes the text; a pick from the list is the index above.
        QObject::connect(line, &QLineEdit::textEdited, binding,
                         [binding, &control](const QString& text) {
                             binding->edit([&] { control.setText(textFromQt(text)); });
                         });
    }
}

void bindWidget(ListBox& control, QListWidget& widget) {
    widget.setSelectionMode(QAbstractItemView::SingleSelection);
    auto* binding = new Binding(control, widget, [&control, &widget] {
        if (!sameEntries(control, widget)) {
            widget.clear();
            widget.addItems(entries(control));
        }
        if (widget.currentRow() != control.listIndex()) {
            widget.setCurrentRow(control.listIndex());
        }
        if (control.listIndex() < 0) {
            widget.clearSelection();
        }
    });
    QObject::connect(
        &widget, &QListWidget::currentRowChanged, binding,
        [binding, &control](int row) { binding->edit([&] { control.setListIndex(row); }); });
}

void bindWidget(Control& control, QWidget& widget) {
    new Binding(control, widget, [] {});
}

void bindWidget(Label& control, QLabel& widget) {
    widget.setTextFormat(Qt::PlainText);
    new Binding(control, widget, [&control, &widget] { showCaption(control, widget); });
}

void bindWidget(RangeControl& control, QProgressBar& widget) {
    new Binding(control, widget, [&control, &widget] {
        widget.setRange(control.low(), control.high());
        widget.setValue(control.value());
    });
    nameAfter(control, widget);
}

namespace {

// Follows a control's caption into a widget's accessible name.
class NameFollower final : public QObject {
  public:
    NameFollower(Control& control, QWidget& widget, QString suffix)
        : QObject(&widget), control_(control), widget_(widget), suffix_(std::move(suffix)) {
        watchId_ = control_.watch([this] { show(); });
        show();
    }
    ~NameFollower() override { control_.unwatch(watchId_); }

  private:
    void show() {
        const QString name = qtDisplayText(control_.caption()) + suffix_;
        if (widget_.accessibleName() != name) {
            widget_.setAccessibleName(name);
        }
    }

    Control& control_;
    QWidget& widget_;
    QString suffix_;
    Control::WatchId watchId_ = 0;
};

}  // namespace

void nameAfter(Control& control, QWidget& widget, const QString& suffix) {
    new NameFollower(control, widget, suffix);
}

void withoutMnemonic(QWidget& widget) {
    widget.setProperty(kNoMnemonicProperty, true);
}

void giveMnemonics(QWidget& window) {
    QString taken;
    const auto buttons = window.findChildren<QPushButton*>();
    for (QPushButton* b : buttons) {
        if (b->text().contains(QLatin1Char('&'))) {
            taken += b->text().at(b->text().indexOf(QLatin1Char('&')) + 1).toLower();
        }
    }
    for (QPushButton* b : buttons) {
        const QString text = b->text();
        if (b->isFlat() || text.isEmpty() || text.contains(QLatin1Char('&')) ||
            b->property(kNoMnemonicProperty).toBool()) {
            continue;
        }
        // A word's first letter reads best ("&Save As" then "Save &As"); then any.
        QChar letter;
        for (int pass = 0; pass < 2 && letter.isNull(); ++pass) {
            for (int i = 0; i < text.size() && letter.isNull(); ++i) {
                const QChar c = text.at(i).toLower();
                const bool wordStart = i == 0 || !text.at(i - 1).isLetterOrNumber();
                if (c.isLetter() && c.unicode() < 128 && !taken.contains(c) &&
                    (pass == 1 || wordStart)) {
                    letter = c;
                }
            }
        }
        if (letter.isNull()) {
            continue;
        }
        taken += letter;
        b->setProperty(kMnemonicProperty, letter);
        b->setText(withMnemonic(text, *b));
    }
}

}  // namespace brevane
