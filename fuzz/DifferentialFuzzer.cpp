// Each byte of the input chooses how a conversion file and two association files go on, so that
// nearly every input is well-formed and reads into something.
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "Compare.h"
#include "PlainUnits.h"
#include "Require.h"
#include "ScratchFolder.h"
#include "units/DataUnitToDisplayUnitConverter.h"

namespace {

class Choices {
 public:
  Choices(const std::uint8_t* data, std::size_t size) : data(data), size(size) {}

  bool More() const { return size > 0; }

  template <std::size_t N>
  std::string Of(const std::array<const char*, N>& options) {
    const std::size_t choice = size > 0 ? *data % N : 0;
    data += size > 0 ? 1 : 0;
    size -= size > 0 ? 1 : 0;
    return options[choice];
  }

 private:
  const std::uint8_t* data;
  std::size_t size;
};

std::string Unit(Choices& choices) {
  return choices.Of(std::array{"A", "B", "C",
                               "\xB0"
                               "F",
                               "", "A&amp;B"});
}

std::string Number(Choices& choices) {
  return choices.Of(std::array{"1.8", "-17.777777777777778", "0.1", "1e300", "1e999", "x", " 3kg",
                               "", "0", "1,5"});
}

std::string Conv(Choices& choices) {
  const std::string kind = choices.Of(std::array{" type='slope-int'", " type='Slope-Int'", "", "",
                                                 " type='custom'", " type=''", " type='x'"});
  const std::string constants =
      choices.Of(std::array{" scalar=", " offset=", " invalid="}) + "'" + Number(choices) + "'";
  const std::string expression = choices.Of(std::array{
      "", " to_float='val * 3 + 1'", " to_float='1 / val'", " to_float='vol'", " to_float='2 *'",
      " to_float='sin(val)'", " to_float=''", " to_float='val = val ? 2 : 3'"});
  const std::string content =
      choices.Of(std::array{"", "<scalar>0.3</scalar><offset>2</offset>", "<type>slope-int</type>",
                            "<to_float> val </to_float>", "<offset/><offset>1</offset>"});
  return "<conv" + kind + constants + expression + ">" + content + "</conv>";
}

std::string ConversionFile(Choices& choices) {
  std::string text = "<unit_conversions>";
  do {
    text += "<fromunit id='" + Unit(choices) + "'>";
    do {
      const std::string tag = choices.Of(std::array{"tounit", "tounit", "tounit", "other"});
      text += "<" + tag + choices.Of(std::array{" id='", " id='", " id='", " name='"}) +
              Unit(choices) + "'>" + Conv(choices) + "</" + tag + ">";
    } while (choices.Of(std::array{"", "more"}) == "more");
    text += "</fromunit>";
  } while (choices.Of(std::array{"", "more"}) == "more");
  return text + "</unit_conversions>";
}

std::string AssociationFile(Choices& choices) {
  std::string text = "<unit_associations>" +
                     choices.Of(std::array{"", "<include>b</include>", "<include>c</include>",
                                           "<include>b</include><include>b</include>", "<include/>",
                                           "<include>a</include>"});
  do {
    text += "<unitassoc id='" + Unit(choices) + "'" + choices.Of(std::array{" tounit='", " x='"}) +
            Unit(choices) + "' fromunit='" + Unit(choices) + "'><tounit>" + Unit(choices) +
            "</tounit></unitassoc>";
  } while (choices.Of(std::array{"", "more"}) == "more");
  return text + "</unit_associations>";
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const ScratchFolder folder;
  Choices choices(data, size);
  PlainUnits plain;
  units::DataUnitToDisplayUnitConverter display;
  units::UnitConverter converter;
  for (int load = 0; load < 2; ++load) {
    folder.Write("UNIT_CONVERSIONS.xml", ConversionFile(choices));
    display.SetXMLFilePath(folder.Path());
    converter.SetXMLFilePathAndLoad(folder.Path());
    plain.ReadConversions(folder.Path() + "UNIT_CONVERSIONS.xml");
    folder.Write("a", AssociationFile(choices));
    folder.Write("b", AssociationFile(choices));
    std::string error;
    const bool loaded = display.RecursiveLoad(folder.Path() + "a", units::UNIT_TYPE_STD, error);
    Require(loaded == plain.ReadAssociations(folder.Path() + "a", folder.Path()),
            "the load succeeds by the same rules");
  }
  CompareConversions(plain, converter);
  CompareAssociations(plain, display);
  return 0;
}
