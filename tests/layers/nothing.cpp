// A program with nothing of its own: see src/CMakeLists.txt.
int main() {}
