#pragma once

// Answers to the modal windows that an action opens while it runs: the message box, read and closed
// with OK, and the file dialog, filled in as a user does.

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>
#include <string>

// Runs action, reads the message box it opens and presses OK; empty if none opened. The box is looked
// for until the action returns, so that a slow build does not miss it and wait on it for ever.
inline std::string MessageOf(const std::function<void()>& action)
{
    std::string text;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&text] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            text = box->text().toStdString();
            box->accept();
        }
    });
    poll.start(20);
    action();
    return text;
}

// Answers the next file dialog as a user would: picks path, or cancels when path is empty. Returns the
// dialog's title, folder, filters and first name, so that the caller can check what the user was shown.
struct FileDialogAnswer {
    QString title;
    QString folder;
    QStringList filters;
    QString initialName;
};

inline FileDialogAnswer PickFile(QWidget* owner, const QString& path, const std::function<void()>& action)
{
    FileDialogAnswer seen;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        auto* dialog = owner->findChild<QFileDialog*>();
        if (!dialog || !dialog->isVisible())
            return;
        poll.stop();
        auto* name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        seen = {dialog->windowTitle(), dialog->directory().absolutePath(), dialog->nameFilters(),
                name ? name->text() : QString()};
        if (path.isEmpty()) {
            dialog->reject();
            return;
        }
        // As a user does: the path typed into the name field, then Open (or Save).
        auto* buttons = dialog->findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"));
        QPushButton* accept = nullptr;
        if (buttons)
            accept = buttons->button(dialog->acceptMode() == QFileDialog::AcceptSave ? QDialogButtonBox::Save
                                                                                     : QDialogButtonBox::Open);
        if (!name || !accept) {
            ADD_FAILURE() << "the file dialog has no name field or no accept button";
            dialog->reject();
            return;
        }
        name->setText(path);
        accept->click();
    });
    poll.start(20);
    // A dialog that never shows must not hold the run: whatever is modal after five seconds is closed.
    QTimer guard;
    guard.setSingleShot(true);
    QObject::connect(&guard, &QTimer::timeout, [] {
        if (QWidget* modal = QApplication::activeModalWidget())
            modal->close();
    });
    guard.start(5000);
    action();
    return seen;
}
