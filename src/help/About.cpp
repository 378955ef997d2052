#include "help/About.h"

#include <array>

#include "core/Common.h"
#include "files/TextFile.h"

using namespace Qt::StringLiterals;

namespace {

struct Used {
    QStringView name;
    QStringView purpose;
    QStringView licence;
};

constexpr std::array used{
    Used{u"Qt 6", u"画面と報告書", u"LGPL 3.0"},
    Used{u"SQLCipher", u"データベース", u"BSD 3-Clause"},
    Used{u"SQLite", u"データベース", u"パブリックドメイン"},
    Used{u"ICU", u"文字の変換", u"Unicode License"},
    Used{u"CUPS", u"印刷", u"Apache License 2.0"},
    Used{u"QCustomPlot", u"図", u"GPL 3.0"},
    Used{u"libxlsxwriter", u"回答用紙の作成", u"BSD 2-Clause"},
    Used{u"libzip", u"表計算ファイルの読み込み", u"BSD 3 条項"},
    Used{u"Expat", u"表計算ファイルの読み込み", u"MIT"},
    Used{u"libcsv", u"文字の表の読み込み", u"LGPL 2.1 以降"},
    Used{u"IPA フォント", u"文字", u"IPA フォントライセンス 1.0"},
};

} // namespace

QString programVersion() {
    return u"Hollin %1"_s.arg(QStringView(HOLLIN_VERSION));
}

QString aboutText() {
    QString text = programVersion() + u"\n\nデータ: %1\n書き出したファイルとメッセージファイル: %2\n"_s.arg(
                                          nativePath(Common::AppDir + u"\\DB\\Hollin.mdb"_s),
                                          nativePath(Common::AppDir + u"\\file"_s));
    text +=
        u"\nHollin は自由ソフトウェアです。GNU GPL バージョン "
        u"3、またはそれ以降のバージョンに従って、再配布と改変ができます。"
        "無保証です。\n"
        "\n使用しているソフトウェアと使用許諾\n"_s;
    for (const auto& [name, purpose, licence] : used)
        text += u"　%1（%2） — %3\n"_s.arg(name, purpose, licence);
    return text + u"使用許諾の全文は /usr/share/doc の各パッケージのフォルダーにあります。"_s;
}
