#pragma once

#include <QString>

/// Leaves a picture of every form in `folder`: in German and in English, on a light and on a dark palette,
/// with a practice server in the same process to fill them. False if a picture can't be written.
bool MakeGallery(const QString& folder);
