#include "registry/output_table.h"

namespace orlo
{

jet::TableDefinition OutputTable()
{
    constexpr int kPlantCodeLength = 20;
    return {u"Output",
            {{u"Tracciato", jet::ColumnType::Integer, 2},
             {u"Codice_Azienda", jet::ColumnType::Text, kPlantCodeLength}},
            {}};
}

}  // namespace orlo
