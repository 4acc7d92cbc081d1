#include "vehicle/DataType.h"

namespace vehicle {

namespace {

const std::string kTagName = "conv";  // records are many

}  // namespace

DataType::DataType() : BaseVehicleDefObj(kTagName) {}

DataType::~DataType() = default;

int DataType::Validate() { return 0; }

int DataType::DoRead(TiXmlElement* /*element*/, std::string& /*error*/, bool /*flag*/) { return 0; }

}  // namespace vehicle
