#pragma once
// Modal forms in tests: each showing runs the next queued script on the form (fill fields,
// press OK), then closes it as Cancel would if the script left it open.
#include "gadgets/form.h"
#include <QQueue>
#include <QStringList>
#include <functional>
#include <stdexcept>

namespace tsl::test {

class ScriptedForms : public FormHost {
  public:
    QQueue<std::function<void(Form&)>> scripts;
    QStringList shown; // form names, in order

    void showModal(Form& form) override {
        shown.append(form.formName());
        if (scripts.isEmpty())
            throw std::runtime_error("unexpected form: " + form.formName().toStdString());
        scripts.dequeue()(form);
    }

    // Queues a script for a form of a known type.
    template <typename F> void then(std::function<void(F&)> script) {
        scripts.enqueue([script](Form& form) { script(dynamic_cast<F&>(form)); });
    }
};

} // namespace tsl::test
