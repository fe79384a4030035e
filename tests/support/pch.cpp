// Empty: only there to have the shared headers precompiled.
