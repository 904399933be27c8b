// Compiles the precompiled header that the areas built on the widget kit share.
