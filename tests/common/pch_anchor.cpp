// Compiles the precompiled header that all test code shares.
