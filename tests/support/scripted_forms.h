#pragma once
// Forms in tests. Each modal showing runs the next queued script on the form (fill fields,
// press OK). A modeless form stays open, owned here, until it unloads; a test drives it
// between its own steps as the user would.
#include "gadgets/form.h"
#include <QQueue>
#include <QStringList>
#include <algorithm>
#include <functional>
#include <memory>
#include <stdexcept>
#include <vector>

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

    void showModeless(std::unique_ptr<Form> form) override {
        freeUnloaded();
        shown.append(form->formName());
        modeless_.push_back(std::move(form));
    }

    // The open modeless form of that type; null when there is none. Forms that have unloaded
    // are freed here, as the real host frees them once their handler has returned.
    template <typename F> F* modeless() {
        freeUnloaded();
        for (const auto& form : modeless_)
            if (auto* typed = dynamic_cast<F*>(form.get())) return typed;
        return nullptr;
    }

    // Queues a script for a form of a known type.
    template <typename F> void then(std::function<void(F&)> script) {
        scripts.enqueue([script](Form& form) { script(dynamic_cast<F&>(form)); });
    }

  private:
    void freeUnloaded() {
        modeless_.erase(std::remove_if(modeless_.begin(), modeless_.end(),
                                       [](const auto& form) { return !form->isLoaded(); }),
                        modeless_.end());
    }
    std::vector<std::unique_ptr<Form>> modeless_;
};

} // namespace tsl::test
