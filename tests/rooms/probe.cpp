// Only there for the target's include path.
