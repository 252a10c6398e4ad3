// The two functions by which the program knows a protocol component.

#include "simulator/component/create.h"

#include <exception>

#define ORLO_EXPORT extern "C" __attribute__((visibility("default")))

ORLO_EXPORT std::int32_t OrloComponentInterface()
{
    return orlo::component::kInterfaceVersion;
}

ORLO_EXPORT orlo::component::Object* OrloCreateObject(const char* class_name,
                                                      const char* const* devices)
{
    try {
        return orlo::simulator::CreateObject(class_name, devices);
    } catch (const std::exception&) {
        return nullptr;
    }
}
