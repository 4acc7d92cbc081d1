#pragma once

#include <string>

#include "../util/Export.h"

class TiXmlElement;

namespace vehicle {

/// What every definition object can do; `BaseVehicleDefObj` says how. The order of the operations
/// is that of their virtual slots.
class VEHICLE_UNITS_EXPORT IBaseVehicleDefObj {
 public:
  virtual ~IBaseVehicleDefObj();

  /// "BaseVehicleDefObj".
  virtual const char* DebugGetClassName() const;

  /// Reads an element into the object; 2 means that nothing was read.
  virtual int Read(TiXmlElement* element, std::string& error, bool flag) = 0;
  virtual int Validate() = 0;                          ///< Checks the object; 0 means sound.
  virtual int GetTagXMLRow() const = 0;                ///< The row of its element, from 1.
  virtual int GetTagXMLColumn() const = 0;             ///< The column of its element, from 1.
  virtual std::string GetTagDocumentName() const = 0;  ///< The file of its element.
  virtual const std::string& GetObjId() const = 0;     ///< The identifier.
  virtual void SetObjId(const std::string& id) = 0;    ///< Replaces the identifier.
  /// Binds the object to its next element, and returns that.
  virtual TiXmlElement* ReadObjId(TiXmlElement* element, bool flag) = 0;
  virtual bool IsObjIdRequired() const = 0;  ///< Whether it is an error to lack an identifier.
  /// Reads the class's own content.
  virtual int DoRead(TiXmlElement* element, std::string& error, bool flag) = 0;
};

/// The base of every definition object: a thing that reads itself from one XML element.
///
/// The library declares this class; the host's framework, or the stand-in, defines it.
/// `vehicle::ReadHashData` drives it: `ReadObjId` binds an object to its element, `Read` fills it.
///
/// An object points into the parsed document that it was last bound to and may be asked for its
/// row, column, document name or missing-tag message only while that document exists. Threads: an
/// object has no lock; reading into it must not overlap any other use of it.
class VEHICLE_UNITS_EXPORT BaseVehicleDefObj : public IBaseVehicleDefObj {
 public:
  /// An object without identifier whose class is read from elements named `tagName`.
  explicit BaseVehicleDefObj(const std::string& tagName);
  ~BaseVehicleDefObj() override;

  /// Reads `element` into the object, passing its arguments on to `DoRead`. Returns 2 for a null
  /// element, which means that nothing was read; otherwise `DoRead`'s status if it is not 0, else
  /// `Validate`'s. What a read that ended early had read by then stays.
  int Read(TiXmlElement* element, std::string& error, bool flag) override;

  /// Checks the object as read; 0 means sound.
  int Validate() override = 0;

  /// The row of the element in its document, from 1; 0 for an object bound to none.
  int GetTagXMLRow() const override;
  /// The column, in the same way.
  int GetTagXMLColumn() const override;

  /// The name of the element's document, its file path as loaded; empty for an object bound to no
  /// element of a document.
  std::string GetTagDocumentName() const override;

  /// The identifier; empty until an element that has one has been found.
  const std::string& GetObjId() const override;
  /// Replaces the identifier.
  void SetObjId(const std::string& id) override;

  /// Finds the next element of the class's tag name: with `flag` false the first such child of
  /// `element`, with `flag` true the next such sibling. Binds the object to the element found, sets
  /// the identifier (its attribute "id", an empty one included; otherwise the text of its first
  /// child element "id"; otherwise empty) and returns it. Returns null, with the object unchanged,
  /// when there is none or `element` is null.
  TiXmlElement* ReadObjId(TiXmlElement* element, bool flag) override;

  /// Whether an element without identifier is an error: true.
  bool IsObjIdRequired() const override;

  /// Reads the class's own content from `element`; 0 means that all of it was read.
  int DoRead(TiXmlElement* element, std::string& error, bool flag) override = 0;

  /// The line `DOCUMENT:ROW:COLUMN: <element> lacks the tag "tag"`, ended, about the element that
  /// the object is bound to.
  std::string GenerateParseErrorForMissingTag(const std::string& tag) const;

 protected:
  TiXmlElement* currentElement = nullptr;  ///< The element bound to; not owned, may be null.
  std::string objId;                       ///< The identifier.

 private:
  std::string tagName;
};

}  // namespace vehicle
