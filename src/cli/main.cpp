#include <iostream>
int main() { std::cout << "tremorvault-cli\n"; }
