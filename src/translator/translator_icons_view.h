#pragma once

#include <QHash>
#include <QIcon>

/// The pictures of the nodes of a translator tree, by image key: one for each of TranslatorImages. They are
/// drawn at whatever size they are shown, and stand out from light and dark grounds alike.
QHash<QString, QIcon> MakeTranslatorImages();
