#pragma once

#include "link/protocol_component.h"

#include <functional>
#include <memory>
#include <stdexcept>

namespace orlo
{

/// One object of each class of the protocol component, made in the order of the members.
struct ComponentObjects {
    /// What the objects' code lives in; goes last.
    std::shared_ptr<void> library;

    std::unique_ptr<component::TelegramComunication> TelegramObject;
    std::unique_ptr<component::UserData> UserDataObject;
    std::unique_ptr<component::TimeTemplate> TimeTemplateObject;
    std::unique_ptr<component::MCFormatData> MCFormatDataObject;
    std::unique_ptr<component::TimeData> TimeDataObject;
    std::unique_ptr<component::RecordData> RecordDataObject;
    std::unique_ptr<component::FPrVersion> FPrVersionObject;
    std::unique_ptr<component::T3Parameter> T3ParameterObject;
    std::unique_ptr<component::Rings> RingsObject;
};

/// The component cannot be created. The text names the file and what is missing.
class ComponentError : public std::runtime_error
{
public:
    /// The number under which programs know "the object cannot be created".
    static constexpr int kNumber = 429;

    using std::runtime_error::runtime_error;
};

/// Makes the component when the register needs it. Throws ComponentError.
using ComponentFactory = std::function<std::unique_ptr<ComponentObjects>()>;

}  // namespace orlo
