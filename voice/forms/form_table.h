#pragma once
// The one table of factories by which forms are opened. No form includes another form's header: it opens it by name.

#include "platform/forms.h"
#include "platform/qt/form_context.h"

#include <QPointer>

#include <functional>
#include <map>
#include <vector>

class QDialog;
class QWidget;

/// Forms by name, made when they are opened and gone when they are closed. One that hid itself instead comes back as it
/// was left.
class FormTable : public Forms {
public:
    /// A modal form; `make` gets the window that it belongs to. open() returns when the form has been closed.
    void addModal(TextView name, std::function<QDialog*(QWidget* owner)> make);
    /// A form that is shown without stopping the caller. `speaksAgain`: when it is opened while it is open, it says its
    /// opening text once more, because the user has asked for it and would hear nothing else.
    void addModeless(TextView name, std::function<QWidget*(QWidget* owner)> make, bool speaksAgain = false);
    /// A window that is there as long as the program: open() shows it.
    void addStanding(TextView name, QWidget& window);
    /// Must be called before the first form is opened; see MessageDialogs::setContext.
    void setContext(const FormContext& context) { context_ = &context; }

    /// Destroys the forms that are still open; called when the program has ended, before what they refer to goes.
    void destroyOpenForms();

    void open(TextView name) override;
    void close(TextView name) override;
    bool isLoaded(TextView name) const override;

    /// Every form that can be opened, in the order of the names.
    std::vector<Text> names() const;

private:
    struct Entry {
        std::function<QDialog*(QWidget*)> makeModal{};
        std::function<QWidget*(QWidget*)> makeModeless{};
        QPointer<QWidget> form{};
        bool speaksAgain = false;
    };
    const FormContext* context_ = nullptr;
    std::map<Text, Entry, std::less<>> entries_;
};
