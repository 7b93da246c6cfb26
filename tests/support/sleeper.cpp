// A program that does nothing for as many seconds as it is told.
//   test-sleeper SECONDS [FILE]   holds the file meanwhile, so that nobody else gets it, where the
//                                 system knows such a thing; says "held" once it does
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <thread>

#ifdef _WIN32
#include <windows.h>
#endif

int main(int argc, char** argv) {
    if (argc < 2)
        return EXIT_FAILURE;
#ifdef _WIN32
    if (argc > 2 && CreateFileA(argv[2], GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr) ==
                        INVALID_HANDLE_VALUE)
        return EXIT_FAILURE;
#endif
    std::cout << "held" << std::endl;
    std::this_thread::sleep_for(std::chrono::duration<double>(std::atof(argv[1])));
    return EXIT_SUCCESS;
}
