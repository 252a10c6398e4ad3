#include "jet/error.h"
#include "jetfile/commands.h"
#include "jetfile/json.h"
#include "jetfile/script.h"

#include <iostream>

namespace
{

using namespace jetfile;

enum ExitStatus { kDone = 0, kFailed = 1, kWrongUsage = 2 };

ExitStatus Main(const std::vector<std::string>& arguments)
{
    const bool sound = RunCommand(ReadOptions(arguments), std::cin, std::cout);
    if (!std::cout.flush()) throw std::runtime_error("the output cannot be written");
    return sound ? kDone : kFailed;
}

std::string Described(const jet::Error& error)
{
    return "error " + std::to_string(error.Number()) + ": " + error.what();
}

}  // namespace

int main(int argc, char** argv)
{
    // Otherwise a script that cannot be read further would look like one that ends there.
    std::ios::sync_with_stdio(false);
    try {
        return Main({argv + 1, argv + argc});
    } catch (const UsageError& error) {
        std::cerr << "jetfile: " << error.what() << ", see jetfile --help\n";
        return kWrongUsage;
    } catch (const JsonError& error) {
        std::cerr << "jetfile: line " << error.Line() << ", column " << error.Column() << ": "
                  << error.what() << '\n';
    } catch (const ScriptError& error) {
        std::cerr << "jetfile: line " << error.Line() << ": " << Described(error) << '\n';
    } catch (const jet::Error& error) {
        std::cerr << "jetfile: " << Described(error) << '\n';
    } catch (const std::exception& error) {
        std::cerr << "jetfile: " << error.what() << '\n';
    }
    return kFailed;
}
