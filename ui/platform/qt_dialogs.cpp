#include "ui/platform/qt_dialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QStringList>

#include "ui/platform/qt_text.h"

namespace brevane {

namespace {

QString titleOr(const std::string& title) {
    return title.empty() ? QStringLiteral("Brevane") : qtDisplayText(title);
}

// A dialog takes the palette of the window it opens over, as it takes its style sheet,
// so it stands in the colours of the scheme that window is painted in.
template <class Dialog>
Dialog& inParentsColours(Dialog& dialog) {
    dialog.setAttribute(Qt::WA_WindowPropagation, true);
    return dialog;
}

QMessageBox::Icon iconFor(MessageKind kind) {
    switch (kind) {
        case MessageKind::Information:
            return QMessageBox::Information;
        case MessageKind::Exclamation:
            return QMessageBox::Warning;
        case MessageKind::Critical:
            return QMessageBox::Critical;
    }
    return QMessageBox::Information;
}

// Removes a bracketed pattern list at the end of a filter name ("Files (*.bcf)"),
// leaving any other bracketed words alone.
QString withoutShownPatterns(QString name) {
    name = name.trimmed();
    if (name.endsWith(QLatin1Char(')'))) {
        const qsizetype open = name.lastIndexOf(QLatin1Char('('));
        if (open >= 0 && name.indexOf(QLatin1Char('*'), open) > open) {
            name.truncate(open);
        }
    }
    return name.trimmed();
}

// "*.wav;*.ogg" or " *.scn" as Qt's space-separated "*.wav *.ogg".
QString patternList(const QString& patterns) {
    QStringList list;
    for (const QString& p : patterns.split(QLatin1Char(';'))) {
        const QString trimmed = p.trimmed();
        if (!trimmed.isEmpty()) {
            list.append(trimmed);
        }
    }
    return list.isEmpty() ? QStringLiteral("*") : list.join(QLatin1Char(' '));
}

std::optional<std::filesystem::path> runFileDialog(const FileDialogRequest& request, bool save) {
    QFileDialog dialog(QApplication::activeWindow(), qtDisplayText(request.title),
                       qtPath(request.startFolder), qtFileFilter(request.filter));
    inParentsColours(dialog);
    dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    if (!request.fileName.empty()) {
        dialog.selectFile(qtPath(request.fileName));
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return std::nullopt;
    }
    return pathFromQt(dialog.selectedFiles().constFirst());
}

}  // namespace

QString qtFileFilter(std::string_view filter) {
    const QStringList parts = qtText(filter).split(QLatin1Char('|'));
    QStringList entries;
    for (qsizetype i = 0; i < parts.size(); i += 2) {
        const QString name = withoutShownPatterns(parts[i]);
        const QString rawPatterns = i + 1 < parts.size() ? parts[i + 1] : QString();
        if (name.isEmpty() && rawPatterns.trimmed().isEmpty()) {
            continue;  // an empty filter, or a stray '|' at the end
        }
        const QString patterns = patternList(rawPatterns);
        entries.append(name.isEmpty() ? QStringLiteral("(%1)").arg(patterns)
                                      : QStringLiteral("%1 (%2)").arg(name, patterns));
    }
    return entries.join(QStringLiteral(";;"));
}

void QtDialogs::message(MessageKind kind, const std::string& text, const std::string& title) {
    QMessageBox box(iconFor(kind), titleOr(title), qtDisplayText(text), QMessageBox::Ok,
                    QApplication::activeWindow());
    inParentsColours(box);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

bool QtDialogs::askYesNo(const std::string& text, const std::string& title) {
    QMessageBox box(QMessageBox::Question, titleOr(title), qtDisplayText(text),
                    QMessageBox::Yes | QMessageBox::No, QApplication::activeWindow());
    inParentsColours(box);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(QMessageBox::Yes);
    box.setEscapeButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

std::string QtDialogs::inputBox(const std::string& prompt, const std::string& title,
                                const std::string& defaultText) {
    QInputDialog dialog(QApplication::activeWindow());
    inParentsColours(dialog);
    dialog.setInputMode(QInputDialog::TextInput);
    dialog.setWindowTitle(titleOr(title));
    dialog.setLabelText(qtDisplayText(prompt));
    dialog.setTextValue(qtText(defaultText));
    if (dialog.exec() != QDialog::Accepted) {
        return {};
    }
    return textFromQt(dialog.textValue());
}

std::optional<std::filesystem::path> QtDialogs::openFile(const FileDialogRequest& request) {
    return runFileDialog(request, false);
}

std::optional<std::filesystem::path> QtDialogs::saveFile(const FileDialogRequest& request) {
    return runFileDialog(request, true);
}

std::optional<std::filesystem::path> QtDialogs::chooseFolder(
    const std::string& title, const std::filesystem::path& startFolder) {
    QFileDialog dialog(QApplication::activeWindow(), qtDisplayText(title), qtPath(startFolder));
    inParentsColours(dialog);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return std::nullopt;
    }
    return pathFromQt(dialog.selectedFiles().constFirst());
}

}  // namespace brevane
