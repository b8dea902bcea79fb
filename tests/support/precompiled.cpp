// Compiled for its precompiled headers alone.
int main() {}
