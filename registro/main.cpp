#include "jet/error.h"
#include "registro/command.h"
#include "registro/failure.h"

#include <exception>
#include <iostream>

int main(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i) arguments << QString::fromLocal8Bit(argv[i]);
    try {
        orlo::registro::RunCommandLine(arguments, {std::cin, std::cout});
        if (std::cout.flush()) return 0;
        std::cerr << "orlodesk-registro: Il risultato non si può scrivere.\n";
        return 1;
    } catch (const orlo::registro::UsageError& error) {
        std::cerr << "orlodesk-registro: " << error.what() << "\n"
                  << "Vedere orlodesk-registro --help.\n";
        return 2;
    } catch (const std::exception& error) {
        std::cout.flush();
        std::cerr << "orlodesk-registro: " << error.what() << "\n";
        return 1;
    }
}
