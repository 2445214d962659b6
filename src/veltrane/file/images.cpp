#include "veltrane/file/images.hpp"

#include "veltrane/file/common.hpp"

namespace veltrane {

using namespace rows;

template <>
const RecordTable& record_table<DxfEnt_Image>() {
    using Record = DxfEnt_Image;
    static const RecordTable table(
        "DxfEnt_Image",
        {base(record_table<DxfSection_Entity>()), marker("AcDbRasterImage"),
         integer(90, "ClassVersion", &Record::ClassVersion),
         point(10, "InsertionPoint", &Record::InsertionPoint), point(11, "UVector", &Record::UVector),
         point(12, "VVector", &Record::VVector), point2(13, "ImageSize", &Record::ImageSize),
         handle(340, "ImagedefObject", &Record::ImagedefObject),
         integer(70, "DisplayProperties", &Record::DisplayProperties),
         integer(280, "ClippingState", &Record::ClippingState),
         integer(281, "Brightness", &Record::Brightness), integer(282, "Contrast", &Record::Contrast),
         integer(283, "Fade", &Record::Fade), handle(360, "ImagedefReactor", &Record::ImagedefReactor),
         integer(71, "ClipBoundaryType", &Record::ClipBoundaryType),
         integer(91, "ClipBndVertNumber", &Record::ClipBndVertNumber),
         point2(14, "ClipBoundaryVertex", &Record::ClipBoundaryVertex).last_of_many()});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_ImageDef>() {
    using Record = DxfEnt_ImageDef;
    static const RecordTable table(
        "DxfEnt_ImageDef",
        {base(record_table<DxfSection_NgEntity>()), marker("AcDbRasterImageDef"),
         integer(90, "ClassVersion", &Record::ClassVersion),
         string(1, "ImageFileName", &Record::ImageFileName), point2(10, "ImageSize", &Record::ImageSize),
         point2(11, "DefaultSize", &Record::DefaultSize), integer(280, "IsLoadedFlag", &Record::IsLoadedFlag),
         integer(281, "ResolutionUnits", &Record::ResolutionUnits)});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_ImageDefReactor>() {
    using Record = DxfEnt_ImageDefReactor;
    static const RecordTable table(
        "DxfEnt_ImageDefReactor",
        {base(record_table<DxfSection_NgEntity>()), marker("AcDbRasterImageDefReactor"),
         integer(90, "ClassVersion", &Record::ClassVersion)});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_RasterVariables>() {
    using Record = DxfEnt_RasterVariables;
    static const RecordTable table("DxfEnt_RasterVariables",
                                   {base(record_table<DxfSection_NgEntity>()), marker("AcDbRasterVariables"),
                                    integer(90, "ClassVersion", &Record::ClassVersion),
                                    integer(70, "DisplayImageFrameFlag", &Record::DisplayImageFrameFlag),
                                    integer(71, "ImageDisplayQuality", &Record::ImageDisplayQuality),
                                    integer(72, "AutoCADUnits", &Record::AutoCADUnits)});
    return table;
}

}  // namespace veltrane
