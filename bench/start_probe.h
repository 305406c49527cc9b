#pragma once

class QWidget;

/// When `window` has been painted for the first time: prints the peak memory of the process in KiB and ends
/// it.
void ReportFirstPaint(QWidget* window);
