#pragma once

/// Makes this process end as soon as its main window has been painted for the first time and nothing else
/// waits to be done at once. To be called before the application object is made.
void endAfterFirstPaint();
