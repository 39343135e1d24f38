#pragma once

/// Makes the embedded resources known under ":res/". A static library's are not without being asked for.
void initResources();
