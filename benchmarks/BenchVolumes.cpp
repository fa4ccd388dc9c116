#include "BenchVolumes.h"

#include "support/VolumeBuilder.h"

#include <algorithm>
#include <array>
#include <random>
#include <string_view>
#include <vector>

namespace veridane::benchmarks {
namespace {

using namespace test;

constexpr std::uint32_t seed = 20260911;

/// A folder of resources as real bundles have them: `{}` is a number that makes it unique.
struct FolderShape {
    std::string_view path;
    std::string_view fileName;
    std::string_view extension;
    int fewest, most; // files in it
    int weight;       // how often it occurs
};

constexpr FolderShape shapes[] = {
    {"Resources/{}.lproj", "Localizable", ".strings", 3, 12, 30},
    {"Resources/images/set-{}", "toolbar-icon", "@2x.png", 20, 120, 4},
    {"Resources/Help.help/Contents/Resources/pages-{}", "topic", ".html", 10, 60, 4},
    {"Resources/app/node_modules/package-{}", "index", ".js", 2, 8, 20},
    {"Resources/app/node_modules/package-{}/dist/es", "module", ".mjs", 5, 40, 15},
    {"Resources/app/node_modules/package-{}/test/cases", "case", ".json", 4, 30, 8},
    {"Resources/site-packages/library_{}", "module", ".py", 5, 40, 10},
    {"Resources/site-packages/library_{}/__pycache__", "module", ".cpython-311.pyc", 5, 40, 10},
    {"SharedSupport/presets/bank-{}", "Preset", ".preset", 50, 300, 1},
};

constexpr std::array makers = {"Hagebutz Software", "Nordlicht Audio", "Kastanie Systems",
                               "Birkwerk", "Example Industries"};

/// What a made-up Mac is made of, the same at every call of the program.
class Choice {
public:
    // The standard leaves open how a distribution draws, but not what the engine gives.
    int between(int least, int most) {
        return least + static_cast<int>(m_engine() % static_cast<unsigned>(most - least + 1));
    }

    const FolderShape& shape() {
        int left = between(0, m_totalWeight - 1);
        for (const FolderShape& shape : shapes) {
            if (left < shape.weight)
                return shape;
            left -= shape.weight;
        }
        return shapes[0];
    }

    /// Most code is built for Apple silicon by now, some was left behind.
    std::vector<Slice> slices() {
        const int percent = between(0, 99);
        if (percent < 50)
            return {Slice::arm64};
        if (percent < 90)
            return {Slice::x86_64, Slice::arm64};
        if (percent < 98)
            return {Slice::x86_64};
        return {Slice::i386, Slice::x86_64};
    }

private:
    static constexpr int m_totalWeight = [] {
        int sum = 0;
        for (const FolderShape& shape : shapes)
            sum += shape.weight;
        return sum;
    }();
    std::mt19937 m_engine{seed};
};

SignatureSpec signatureOf(std::string_view maker, std::string_view identifier) {
    const std::string team = "TEAM" + std::to_string(100000 + maker.size());
    SignatureSpec spec;
    spec.identifier = identifier;
    spec.teamIdentifier = team;
    spec.leafOrganisationalUnit = team;
    spec.leafOrganisation = maker;
    spec.leafCommonName = "Developer ID Application: " + std::string(maker) + " (" + team + ")";
    return spec;
}

std::string filled(std::string_view pattern, int number) {
    std::string text(pattern);
    text.replace(text.find("{}"), 2, std::to_string(number));
    return text;
}

/// Code as it lies about in bundles: signed by the same maker, or not at all. Signing each of
/// thousands of files would take minutes and change nothing.
class CodeStock {
public:
    CodeStock() {
        for (const char* maker : makers)
            m_signatures.push_back(embeddedSignature(signatureOf(maker, "com.example.component")));
        m_signatures.emplace_back();
    }

    Bytes component(Choice& choice) const {
        const int index = choice.between(0, static_cast<int>(m_signatures.size()) - 1);
        return machO(choice.slices(), m_signatures[static_cast<std::size_t>(index)]);
    }

private:
    std::vector<Bytes> m_signatures;
};

class VolumeWriter {
public:
    VolumeWriter(const std::string& directory, const VolumeSize& size)
        : m_volume(directory), m_size(size) {}

    std::string run() {
        m_volume.folder("/Users/anna/Applications");
        // A tenth of the applications holds nearly half of the files, as large suites do.
        constexpr std::array weights = {12, 3, 3, 3, 1, 1, 1, 1, 1, 1};
        constexpr int groupWeight = 27;
        const int unit = m_size.files / std::max(1, m_size.applications / 10) / groupWeight;
        for (int i = 0; i < m_size.applications && !m_volume.failure(); ++i) {
            const int share = unit * weights[static_cast<std::size_t>(i) % weights.size()];
            writeApplication(i, m_size.applications == 1 ? m_size.files : share);
        }
        for (int i = 0; i < m_size.applications / 10; ++i)
            writePlugin(i);
        for (int i = 0; i < m_size.applications / 5; ++i)
            m_volume.file("/usr/local/bin/tool-" + std::to_string(i), m_stock.component(m_choice));
        return m_volume.failure().value_or(std::string());
    }

private:
    void writeApplication(int number, int files) {
        const std::string name = "Application " + std::to_string(number);
        const bool isUtility = number % 30 == 29;
        const std::string path =
            (isUtility ? "/Applications/Utilities/" : "/Applications/") + name + ".app";
        const std::string_view maker = makers[static_cast<std::size_t>(number) % makers.size()];
        {
            BundleBuilder bundle = m_volume.bundle(path);
            bundle.infoForm(number % 3 == 0 ? PlistForm::binary : PlistForm::xml)
                .identifier("com.example.application-" + std::to_string(number))
                .info("CFBundleName", name)
                .version("3." + std::to_string(number), std::to_string(3000 + number))
                .category("productivity")
                .executable(name, m_choice.slices());
            addUsualKeys(bundle);
            if (number % 8 != 7)
                bundle.signedBy(signatureOf(maker, "com.example.application"));
            if (number % 5 == 0)
                bundle.receipt();
            if (number % 4 == 1)
                bundle.sparkleFeed("https://example.com/appcast.xml");
            const int frameworks = m_choice.between(0, 6);
            for (int i = 0; i < frameworks; ++i)
                bundle.framework("Framework" + std::to_string(i), m_stock.component(m_choice));
        }
        writeResources(path + "/Contents/", files);
    }

    void writePlugin(int number) {
        const std::string name = "Reverb " + std::to_string(number);
        m_volume.bundle("/Library/Audio/Plug-Ins/VST3/" + name + ".vst3")
            .identifier("com.example.reverb-" + std::to_string(number))
            .info("CFBundleName", name)
            .version("1.2", "12")
            .executable(name, m_choice.slices())
            .signedBy(signatureOf(makers[1], "com.example.reverb"));
    }

    /// A real Info.plist has 30 to 60 entries, most of which nobody asks for.
    static void addUsualKeys(BundleBuilder& bundle) {
        for (const char* key :
             {"CFBundleDevelopmentRegion", "CFBundleInfoDictionaryVersion", "CFBundleSignature",
              "DTCompiler", "DTPlatformBuild", "DTPlatformVersion", "DTSDKBuild", "DTSDKName",
              "DTXcode", "DTXcodeBuild", "LSMinimumSystemVersion", "NSMainNibFile",
              "NSPrincipalClass", "NSHumanReadableCopyright"})
            bundle.info(key, "value");
        PlistList types;
        for (int i = 0; i < 8; ++i)
            types.push_back(PlistDictionary{{"CFBundleTypeName", "Document " + std::to_string(i)},
                                            {"CFBundleTypeRole", "Editor"},
                                            {"CFBundleTypeExtensions", PlistList{"doc", "txt"}}});
        bundle.info("CFBundleDocumentTypes", types);
    }

    void writeResources(const std::string& contents, int files) {
        for (int folder = 0; files > 0; ++folder) {
            const FolderShape& shape = m_choice.shape();
            const std::string path = contents + filled(shape.path, folder) + '/';
            const int count = std::min(files, m_choice.between(shape.fewest, shape.most));
            for (int i = 0; i < count; ++i)
                m_volume.file(path + std::string(shape.fileName) + '-' + std::to_string(i) +
                                  std::string(shape.extension),
                              std::string(static_cast<std::size_t>(m_choice.between(8, 200)), '#'));
            files -= count;
            files -= writeCode(contents, count, folder);
        }
    }

    /// The share of the code that goes with some resources; gives the number of files.
    int writeCode(const std::string& contents, int resources, int folder) {
        m_owedCode += resources * m_size.machOPerThousand;
        const int count = m_owedCode / 1000;
        m_owedCode %= 1000;
        for (int i = 0; i < count; ++i)
            m_volume.file(contents + "PlugIns/group-" + std::to_string(folder / 8) + "/libpart-" +
                              std::to_string(folder) + '-' + std::to_string(i) + ".dylib",
                          m_stock.component(m_choice));
        return count;
    }

    VolumeBuilder m_volume;
    const VolumeSize& m_size;
    Choice m_choice;
    CodeStock m_stock;
    int m_owedCode = 0; // thousandths of a file
};

} // namespace

std::string writeVolume(const std::string& directory, const VolumeSize& size) {
    return VolumeWriter(directory, size).run();
}

} // namespace veridane::benchmarks
