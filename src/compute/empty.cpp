// Placeholder so the library has a source before any area exists.
