#include "tests/simulator/component_fixture.h"

#include <csignal>
#include <fstream>
#include <sstream>

namespace orlo::simulator
{

std::string ComponentTest::State()
{
    simulator_->Signal(SIGUSR1);
    EXPECT_EQ(simulator_->Line(), "Stato: " + PathOf("stato"));
    std::ifstream file(PathOf("stato"));
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

}  // namespace orlo::simulator
