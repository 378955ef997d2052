#include "survey/AnswerPage.h"

#include <QCryptographicHash>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <QRegularExpression>

#include "judgement/ComparisonScale.h"
#include "judgement/Consistency.h"
#include "printing/DocumentName.h"
#include "survey/AnswerLayout.h"
#include "survey/AnswerSheet.h"
#include "text/Numbers.h"

using namespace Qt::StringLiterals;
using namespace AnswerLayout;

// Resources of a static library are there once it says so, outside of any namespace.
static void loadPage() {
    Q_INIT_RESOURCE(survey);
}

namespace {

QByteArray resource(const QString& name) {
    loadPage();
    QFile file(u":/survey/"_s + name);
    if (!file.open(QIODevice::ReadOnly)) qFatal("the page is not compiled in");
    return file.readAll();
}

// What no part of can end the script element that it stands in, whatever names are in it.
QByteArray harmlessJson(const QJsonObject& object) {
    return QJsonDocument(object)
        .toJson(QJsonDocument::Compact)
        .replace('<', "\\u003c")
        .replace('>', "\\u003e")
        .replace('&', "\\u0026");
}

QJsonArray scaleArray(const auto& entry) {
    QJsonArray array;
    for (int position = 0; position < scalePositions; ++position) array.append(entry(position));
    return array;
}

// The name of the preferred one comes for "%1" or "%2".
QJsonArray meaningsOf(Aspect aspect) {
    return scaleArray([aspect](int position) {
        return comparisonMeaning(u"「%1」"_s, u"「%2」"_s, position, aspect).remove(u' ');
    });
}

QJsonObject verdicts() {
    const auto figures = u"（整合度 CI %1、整合比 CR %2、限度は "_s + decimalText(consistencyIndexLimit) +
                         u" と "_s + decimalText(consistencyRatioLimit) + u"）。"_s;
    return {{u"good"_s, u"この目的の回答は、互いに合っています"_s + figures},
            {u"bad"_s, u"この目的の回答には、互いに合わないところがあります"_s + figures},
            {u"none"_s, u"この目的の回答の整合度は、計算できません。"_s}};
}

QJsonArray goalsOf(const Questionnaire& questionnaire) {
    QJsonArray goals;
    for (const auto& goal : questionnaire.goals) {
        QJsonArray children;
        for (const auto& child : goal.children) children.append(child.number);
        goals.append(QJsonObject{{u"number"_s, goal.factor.number},
                                 {u"question"_s, questionOf(goal)},
                                 {u"aspect"_s, static_cast<int>(goal.aspect)},
                                 {u"children"_s, children}});
    }
    return goals;
}

QJsonObject factorsOf(const Questionnaire& questionnaire) {
    QJsonObject factors;
    const auto add = [&](const Factor& factor) {
        factors[QString::number(factor.number)] =
            QJsonObject{{u"name"_s, factor.name}, {u"about"_s, questionnaire.contents.value(factor.number)}};
    };
    add(questionnaire.problem);
    for (const auto& goal : questionnaire.goals) {
        add(goal.factor);
        for (const auto& child : goal.children) add(child);
    }
    return factors;
}

QJsonArray formOf(const Questionnaire& questionnaire, const Factor& evaluator) {
    QJsonArray form;
    for (const auto& row : answerRows(questionnaire, evaluator)) form.append(QJsonArray::fromStringList(row));
    return form;
}

QJsonObject dataOf(const Questionnaire& questionnaire, const Factor& evaluator) {
    const auto& problem = questionnaire.problem;
    const auto number = [](int value) { return QString::number(value); };
    return {
        {u"problem"_s, problem.name},
        {u"evaluator"_s, evaluator.name},
        {u"whose"_s, u"%1 様　第 %2 回"_s.arg(evaluator.name, number(questionnaire.round))},
        {u"fileName"_s, documentTitle({u"回答"_s, problem.name, evaluator.name})},
        {u"labels"_s, QJsonArray{problemLabel, roundLabel, evaluatorLabel}},
        {u"identity"_s,
         QJsonArray{number(problem.number), number(questionnaire.round), number(evaluator.number)}},
        {u"columns"_s,
         QJsonObject{{u"goal"_s, GoalNo}, {u"answer"_s, Answer}, {u"left"_s, LeftNo}, {u"right"_s, RightNo}}},
        {u"scale"_s, scaleArray([](int position) { return double{scaleValue(position)}; })},
        {u"choices"_s, scaleArray(choice)},
        {u"words"_s, scaleArray(wordUnder)},
        {u"meanings"_s, QJsonArray{meaningsOf(Aspect::Importance), meaningsOf(Aspect::Quality)}},
        {u"verdicts"_s, verdicts()},
        {u"goals"_s, goalsOf(questionnaire)},
        {u"factors"_s, factorsOf(questionnaire)},
        {u"form"_s, formOf(questionnaire, evaluator)},
    };
}

QByteArray hashSource(const QByteArray& content) {
    return "'sha256-" + QCryptographicHash::hash(content, QCryptographicHash::Sha256).toBase64() + "'";
}

// The template with a text for each "{{name}}", in one go: what a text brings along is no place.
QByteArray filledIn(const QByteArray& page, const QMap<QString, QByteArray>& texts) {
    static const QRegularExpression place(u"\\{\\{(\\w+)\\}\\}"_s);
    const auto whole = QString::fromUtf8(page);
    QByteArray filled;
    qsizetype done = 0;
    for (auto match = place.globalMatch(whole); match.hasNext();) {
        const auto found = match.next();
        filled += whole.mid(done, found.capturedStart() - done).toUtf8() + texts[found.captured(1)];
        done = found.capturedEnd();
    }
    return filled + whole.mid(done).toUtf8();
}

} // namespace

QByteArray answerPage(const Questionnaire& questionnaire, const Factor& evaluator) {
    const auto script = resource(u"judgement.js"_s) + resource(u"page.js"_s);
    const auto style = resource(u"page.css"_s);
    // Only this script and this style; nothing is fetched from anywhere or sent anywhere.
    const auto policy = "default-src 'none'; script-src " + hashSource(script) + "; style-src " +
                        hashSource(style) +
                        "; base-uri 'none'; form-action 'none'; require-trusted-types-for 'script'";
    return filledIn(resource(u"page.html"_s), {{u"policy"_s, policy},
                                               {u"title"_s, titleOf(questionnaire).toHtmlEscaped().toUtf8()},
                                               {u"style"_s, style},
                                               {u"data"_s, harmlessJson(dataOf(questionnaire, evaluator))},
                                               {u"script"_s, script}});
}
