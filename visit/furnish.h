#pragma once

#include "forms/form.h"

/// Puts a form of the catalog into the state in which a user meets it at work: what comes from the server is
/// there, and what he types stands in its boxes. Takes up to a second, in which replies are read.
void Furnish(Form& form);
