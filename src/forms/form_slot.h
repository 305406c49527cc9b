#pragma once

#include "forms/form.h"

/// Holds the one instance of a form that is loaded on demand: made when it is first wanted, let go when the
/// form is closed. The slot must outlive its form.
template <class F> class FormSlot {
public:
    /// The form, made with `arguments` if it isn't loaded.
    template <class... Arguments> F& Load(const Arguments&... arguments) {
        if (form.isNull()) {
            form = new F(arguments...);
            QObject::connect(form, &QDialog::finished, form, [this] { form.clear(); });
        }
        return *form;
    }

    F* Loaded() const { return form; }

private:
    QPointer<F> form;
};
