#include "vehicle/DataType.h"

namespace vehicle {

DataType::DataType() : BaseVehicleDefObj("conv") {}

DataType::~DataType() = default;

int DataType::Validate() { return 0; }

int DataType::DoRead(TiXmlElement* /*element*/, std::string& /*error*/, bool /*flag*/) { return 0; }

}  // namespace vehicle
