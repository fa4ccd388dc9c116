#include "coordination/DemoItems.h"

namespace veridane {
namespace {

ScanItem demoItem(const char* name, const char* identifier, CPUArch architecture, Date date) {
    ScanItem item;
    item.id = Uuid::random();
    item.name = name;
    item.path = "/Applications/" + item.name + ".app";
    item.kind = ItemKind::application;
    item.architecture = {.architectures = {architecture}, .isMachO = true};
    item.status = item.architecture.compatibilityStatus();
    item.bundleIdentifier = identifier;
    item.vendor = "Example";
    item.teamIdentifier = "ABCDE12345";
    item.lastModified = date;
    item.updateSource = UpdateSource::developerID;
    return item;
}

} // namespace

std::vector<ScanItem> demoItems(Date lastModified) {
    ScanItem intel =
        demoItem("Demo Intel App", "com.example.demo-intel", CPUArch::x86_64, lastModified);
    intel.version = "1.0";
    intel.buildNumber = "100";
    intel.categoryDescription = "Produktivität";
    intel.sizeOnDisk = 10'240'000;

    ScanItem native =
        demoItem("Demo Native App", "com.example.demo-native", CPUArch::arm64, lastModified);
    native.version = "2.0";
    native.buildNumber = "200";
    native.categoryDescription = "Entwicklung";
    native.sizeOnDisk = 22'000'000;
    return {std::move(intel), std::move(native)};
}

} // namespace veridane
