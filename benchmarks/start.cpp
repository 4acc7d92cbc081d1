// A program that does nothing but load the libraries that it is linked with.
int main() {}
