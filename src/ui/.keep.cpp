// Keeps the library non-empty until its first unit lands.
