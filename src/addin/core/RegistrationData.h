#pragma once

#include <string_view>

/// How the add-in is known to the system and to the host: the one place where these names stand.
namespace quorvane::registration {

/// One class that the host makes by its ProgID.
struct Class {
  std::u16string_view progId;
  std::u16string_view classId;  ///< as the registry spells it
  std::u16string_view name;     ///< for people
};

/// From this all ProgIDs are formed.
inline constexpr std::u16string_view kProjectName = u"QuorvaneForVB6";

inline constexpr Class kConnect = {u"QuorvaneForVB6.Connect", u"{66143A36-9E5A-4150-B0AF-4DA3302E65B6}",
                                   u"VBQuorvane add-in"};
inline constexpr Class kResultDialog = {u"QuorvaneForVB6.ResultDialog", u"{2B824E58-44F7-4FB3-A8D8-9FBA749E88AA}",
                                        u"VBQuorvane search results"};

/// Below HKEY_CURRENT_USER; the host's list of add-ins stands in it, under kHostAddIns.
inline constexpr std::u16string_view kHostKey = u"Software\\Microsoft\\Visual Basic\\6.0";
inline constexpr std::u16string_view kHostAddIns = u"Addins";

/// What the host's list of add-ins shows.
inline constexpr std::u16string_view kDisplayName = u"VBQuorvane插件(VB6)";
inline constexpr std::u16string_view kDescription =
    u"* 普通/模式搜索、替换字符串\r\n"
    u"* 正则搜索、替换字符串\r\n"
    u"* 搜索结果列表\r\n"
    u"* 搜索结果相关代码预览\r\n"
    u"* 替换结果相关代码预览\r\n"
    u"* 可取消当前搜索操作\r\n"
    u"* 双击定位结果代码\r\n";

}  // namespace quorvane::registration
