#include "survey/SurveyWorks.h"

#include <array>

#include "survey/AnswerSheet.h"
#include "survey/QuestionnairePages.h"

using namespace Qt::StringLiterals;

std::span<const Work> surveyWorks() {
    static const std::array works{
        Work{u"調査票"_s, u"紙の調査票"_s, u"questionnaires"_s, u"紙の調査票を PDF に出力します"_s, true,
             RoundUse::None, true, PrintQuestionnaires},
        Work{u"調査票"_s, u"回答用紙 (.xlsx)"_s, u"answer-sheets"_s,
             u"回答用紙を .xlsx ファイルに書き出します"_s, true, RoundUse::None, false,
             WriteAnswerSpreadsheets},
        Work{u"調査票"_s, u"回答ページ (.html)"_s, u"answer-pages"_s,
             u"回答ページを .html ファイルに書き出します"_s, true, RoundUse::None, false, WriteAnswerPages},
        Work{u"調査票"_s, u"回答用紙 (.csv)"_s, u"answer-texts"_s,
             u"回答用紙を .csv ファイルに書き出します"_s, true, RoundUse::None, false, WriteAnswerTexts},
    };
    return works;
}
