#include "voice/forms/form_table.h"

#include "platform/failure.h"
#include "voice/forms/SpokenForm.h"
#include "voice/forms/modal_runner.h"

#include <QApplication>
#include <QDialog>

#include <memory>

namespace {

/// A form that only shows something leaves the keyboard where it is.
void giveKeyboard(QWidget& form) {
    if (!form.testAttribute(Qt::WA_ShowWithoutActivating)) {
        form.activateWindow();
    }
}

} // namespace

void FormTable::addModal(TextView name, std::function<QDialog*(QWidget*)> make) {
    entries_[Text(name)].makeModal = std::move(make);
}

void FormTable::addModeless(TextView name, std::function<QWidget*(QWidget*)> make, bool speaksAgain) {
    Entry& entry = entries_[Text(name)];
    entry.makeModeless = std::move(make);
    entry.speaksAgain = speaksAgain;
}

void FormTable::addStanding(TextView name, QWidget& window) {
    entries_[Text(name)].form = &window;
}

void FormTable::open(TextView name) {
    const auto found = entries_.find(name);
    if (found == entries_.end()) {
        throw RuntimeFailure{FailureKind::impossible};
    }
    Entry& entry = found->second;
    if (entry.form) {
        SpokenForm* again = entry.speaksAgain && entry.form->isVisible() ? SpokenForm::nearest(entry.form) : nullptr;
        entry.form->show(); // a form that was hidden is still there, as it was left
        if (again != nullptr) {
            again->openAgain();
        }
        giveKeyboard(*entry.form);
        entry.form->raise();
        return;
    }
    // A window that has just been closed may still count as the active one, but nothing can stand above it.
    QWidget* active = QApplication::activeWindow();
    QWidget* owner = active != nullptr && active->isVisible() ? active : nullptr;
    if (entry.makeModal) {
        const std::unique_ptr<QDialog> form(entry.makeModal(owner));
        entry.form = form.get();
        context_->modals.run(*form);
        return;
    }
    entry.form = entry.makeModeless(owner);
    entry.form->setAttribute(Qt::WA_DeleteOnClose);
    entry.form->show();
    giveKeyboard(*entry.form);
}

void FormTable::destroyOpenForms() {
    for (auto& [name, entry] : entries_) {
        if (entry.makeModeless) {
            delete entry.form.data();
        }
    }
}

void FormTable::close(TextView name) {
    const auto found = entries_.find(name);
    if (found != entries_.end() && found->second.form) {
        found->second.form->close();
    }
}

bool FormTable::isLoaded(TextView name) const {
    const auto found = entries_.find(name);
    return found != entries_.end() && found->second.form && found->second.form->isVisible();
}

std::vector<Text> FormTable::names() const {
    std::vector<Text> names;
    for (const auto& [name, entry] : entries_) {
        names.push_back(name);
    }
    return names;
}
