// The questionnaire of one evaluator. The data stand in the page; answers are kept by the numbers of goal and factors,
// "12/21/22" → position on the scale, so that they find their pair again in a page made anew.
(() => {
  const data = JSON.parse(document.getElementById("data").textContent);
  const equal = (data.scale.length - 1) / 2;
  const place = data.identity.concat(data.problem, data.evaluator).join("/"); // in the browser's storage
  const mostBytesToLoad = 4 << 20;
  const answers = new Map();
  let current = 0; // goal that is shown
  let before = null; // the last pair changed and what it had
  let typed = { pair: null, text: "" }; // "1" may become "1/", "/" waits for a digit
  let isKept = true; // whether the browser stores
  let isSaved = true; // whether all answers are in a file

  const byId = (id) => document.getElementById(id);
  const goals = data.goals.map((goal, number) => {
    const children = goal.children.map((factor) => ({ number: factor, ...data.factors[factor] }));
    const pairs = judgement.pairsOf(children.length).map(([i, j], index) => {
      const [left, right] = [children[i], children[j]];
      return { number: index + 1, left, right, key: [goal.number, left.number, right.number].join("/") };
    });
    return { ...goal, index: number, children, pairs };
  });
  const allPairs = goals.flatMap((goal) => goal.pairs);
  const keys = new Set(allPairs.map((pair) => pair.key));

  function element(tag, properties, ...contents) {
    const made = document.createElement(tag);
    for (const [name, value] of Object.entries(properties))
      if (name in made) made[name] = value;
      else made.setAttribute(name, value);
    made.append(...contents);
    return made;
  }
  const filled = (text, ...values) => text.replace(/%(\d)/g, (mark, number) => values[number - 1]);
  const degree = (position) => String(Math.abs(position - equal) + 1);
  const meaning = (goal, pair, position) => filled(data.meanings[goal.aspect][position], pair.left.name, pair.right.name);
  const open = (pairs) => pairs.filter((pair) => !answers.has(pair.key));
  const tell = (text) => (byId("told").textContent = text);

  // --- what is kept

  function keep() {
    try {
      localStorage.setItem(place, JSON.stringify([...answers]));
    } catch {
      isKept = false;
    }
  }

  // Only what this page asks, and only answers there are.
  function take(kept) {
    let taken = 0;
    for (const [key, position] of kept)
      if (keys.has(key) && Number.isInteger(position) && data.scale[position] !== undefined) {
        answers.set(key, position);
        ++taken;
      }
    return taken;
  }

  function recall() {
    answers.clear();
    try {
      take(JSON.parse(localStorage.getItem(place) ?? "[]"));
      localStorage.setItem(place, JSON.stringify([...answers]));
    } catch {
      isKept = false;
    }
  }

  // --- the file that goes back

  // No cell is a formula for the spreadsheet program that may open the file.
  const plain = (cell) => (/^[=+\-@\t\r]/.test(cell) && Number.isNaN(Number(cell)) ? `'${cell}` : cell);
  const quoted = (cell) => (/[",\r\n]/.test(cell) ? `"${cell.replaceAll('"', '""')}"` : cell);
  // The cells of a row that asks for a pair by name of column; null for another row.
  function pairOf(row) {
    const cell = (column) => (row[data.columns[column]] ?? "").trim();
    const key = [cell("goal"), cell("left"), cell("right")].join("/");
    return keys.has(key) ? { key, answer: cell("answer") } : null;
  }

  function answerFile() {
    const rows = data.form.map((row) => {
      const position = answers.get(pairOf(row)?.key);
      return row.map((cell, column) => (position === undefined || column !== data.columns.answer ? cell : data.choices[position]));
    });
    return "\ufeff" + rows.map((row) => row.map(plain).map(quoted).join(",") + "\r\n").join("");
  }

  function parsed(text) {
    const rows = [[""]];
    let isQuoted = false;
    for (const [token] of text.replace(/^\ufeff/, "").matchAll(/""|"|,|\r?\n|[^",\r\n]+|\r/g)) {
      const row = rows.at(-1);
      if (token === '"') isQuoted = !isQuoted;
      else if (token === '""' && !isQuoted) continue; // an empty cell
      else if (!isQuoted && token === ",") row.push("");
      else if (!isQuoted && /^\r?\n$/.test(token)) rows.push([""]);
      else row[row.length - 1] += token === '""' ? '"' : token;
    }
    return rows;
  }

  function save() {
    const now = new Date();
    const stamp = new Date(now - now.getTimezoneOffset() * 60000).toISOString().slice(0, 19).replace(/[-:]/g, "");
    const link = element("a", {
      href: URL.createObjectURL(new Blob([answerFile()], { type: "text/csv" })),
      download: `${data.fileName}_${stamp.replace("T", "-")}.csv`,
    });
    link.click();
    setTimeout(() => URL.revokeObjectURL(link.href), 60000);
    isSaved = true;
    const left = open(allPairs).length;
    tell(
      left === 0
        ? `「${link.download}」に保存しました。このファイルを担当者にお返しください。`
        : `途中までの回答を「${link.download}」に保存しました。未回答が ${left} 組あります。`,
    );
    showSaved();
  }

  // Why the file cannot be taken in, or nothing.
  function refusal(rows) {
    const said = data.labels.map((label) => rows.find((row) => row[0].trim() === label)?.[1]?.trim());
    if (said.includes(undefined)) return "このページで保存した回答のファイルではありません。";
    const wrong = data.labels.findIndex((label, index) => said[index] !== data.identity[index]);
    return wrong < 0
      ? ""
      : `別の調査票の回答です（${data.labels[wrong]}が、ファイルは ${said[wrong].slice(0, 20)}、このページは ${data.identity[wrong]}）。`;
  }

  async function load(file) {
    if (file.size > mostBytesToLoad) return tell("大きすぎるため、読み込めません。");
    const rows = parsed(await file.text());
    const why = refusal(rows);
    if (why !== "") return tell(why);
    const found = rows.map(pairOf).filter((row) => row !== null && row.answer !== "");
    const loaded = found.map(({ key, answer }) => [key, data.choices.indexOf(answer)]);
    const replaced = loaded.filter(([key, position]) => answers.has(key) && answers.get(key) !== position).length;
    if (replaced > 0 && !confirm(`このページの ${replaced} 組の回答が、ファイルの回答に替わります。よろしいですか？`)) return;
    const taken = take(loaded);
    changed(null);
    showGoal(firstOpenGoal());
    const unread = found.length - taken;
    tell(`${taken} 組の回答を読み込みました。` + (unread > 0 ? `${unread} 組は選択肢にないため読み込めませんでした。` : ""));
  }

  // --- what is shown

  function explained(text) {
    return element("p", { className: "explained", textContent: text });
  }

  function scaleRow(goal, pair) {
    const labels = data.scale.map((value, position) => {
      const says = meaning(goal, pair, position);
      const input = element("input", {
        type: "radio",
        name: pair.key,
        value: position,
        checked: answers.get(pair.key) === position,
        "aria-label": `${degree(position)} ${says}`,
      });
      const word = element("small", { "aria-hidden": "true", textContent: data.words[position] });
      const digit = element("span", { textContent: degree(position) });
      return element("label", { title: says, className: position === equal ? "equal" : "" }, input, digit, word);
    });
    return element("div", { className: "scale" }, ...labels);
  }

  function pairField(goal, pair) {
    const side = (factor) =>
      element("div", { className: "side" }, element("p", { className: "name", textContent: factor.name }), explained(factor.about));
    const legend = element("legend", { textContent: `組 ${pair.number} / ${goal.pairs.length}` });
    const field = element(
      "fieldset",
      { className: "pair", id: pair.key, "aria-label": `組 ${pair.number} ${pair.left.name} と ${pair.right.name}` },
      legend,
      element("div", { className: "sides" }, side(pair.left), side(pair.right)),
      scaleRow(goal, pair),
      element("p", { className: "sentence" }),
    );
    field.addEventListener("change", (event) => answer(pair, Number(event.target.value)));
    field.addEventListener("keydown", (event) => key(event, pair));
    return field;
  }

  // Sets the field to the pair's answer.
  function showPair(goal, pair) {
    const field = byId(pair.key);
    const position = answers.get(pair.key);
    field.classList.toggle("open", position === undefined);
    field.querySelector(".sentence").textContent =
      position === undefined ? "未回答" : `${meaning(goal, pair, position)}（${data.choices[position]}）`;
    field.querySelectorAll("input").forEach((input, index) => (input.checked = index === position));
  }

  function showGoal(number) {
    const goal = goals[number];
    current = number;
    byId("place").textContent = `目的 ${number + 1} / ${goals.length}`;
    byId("question").textContent = goal.question;
    byId("goal-about").textContent = data.factors[goal.number].about;
    byId("pairs").replaceChildren(...goal.pairs.map((pair) => pairField(goal, pair)));
    byId("previous").disabled = number === 0;
    byId("next").disabled = number === goals.length - 1;
    goal.pairs.forEach((pair) => showPair(goal, pair));
    showProgress();
    showVerdict();
  }

  function goTo(number) {
    showGoal(number);
    byId("goal").focus();
    byId("goal").scrollIntoView({ block: "start" });
  }

  function goalButton(goal) {
    const left = open(goal.pairs).length;
    const state = left === 0 ? "✓ 済み" : left < goal.pairs.length ? `あと ${left} 組` : `${left} 組`;
    const button = element(
      "button",
      { type: "button" },
      `${goal.index + 1}. ${data.factors[goal.number].name} `,
      element("span", { className: left === 0 ? "state done" : "state", textContent: state }),
    );
    if (goal.index === current) button.setAttribute("aria-current", "step");
    button.addEventListener("click", () => goTo(goal.index));
    return element("li", {}, button);
  }

  function showProgress() {
    const left = open(allPairs).length;
    const done = allPairs.length - left;
    byId("progress").max = allPairs.length;
    byId("progress").value = done;
    byId("count").textContent = `${done} / ${allPairs.length} 組に回答（未回答 ${left} 組）`;
    byId("next-open").disabled = left === 0;
    byId("goals").replaceChildren(...goals.map(goalButton));
    showSaved();
  }

  function showSaved() {
    const kept = isKept ? "" : "このブラウザーには途中の回答が残りません。閉じる前に「回答を保存」を押してください。";
    const unsaved = isSaved ? "" : "最後に保存した後に変えた回答があります。";
    byId("saved").textContent = kept + unsaved || "すべての回答がファイルに保存されています。";
    if (answers.size === 0) byId("saved").textContent = kept + "まだ回答がありません。";
  }

  function namedPair(goal, index) {
    const pair = goal.pairs[index];
    const button = element("button", {
      type: "button",
      textContent: `組 ${pair.number}「${pair.left.name}」と「${pair.right.name}」を見る`,
    });
    button.addEventListener("click", () => focusPair(pair));
    return button;
  }

  // Once a goal of three or more factors is complete. Whatever the answers are, they may stay.
  function showVerdict() {
    const goal = goals[current];
    const verdict = byId("verdict");
    verdict.replaceChildren();
    verdict.classList.remove("odd");
    if (goal.children.length < 3 || open(goal.pairs).length > 0) return;
    const values = goal.pairs.map((pair) => data.scale[answers.get(pair.key)]);
    const found = judgement.judge(values, goal.children.length, data.scale);
    const figure = (number) => Math.max(number, 0).toFixed(3);
    const words = found.index === null ? data.verdicts.none : found.isConsistent ? data.verdicts.good : data.verdicts.bad;
    verdict.append(element("p", { textContent: filled(words, figure(found.index), figure(found.ratio)) }));
    verdict.classList.toggle("odd", !found.isConsistent);
    const doubtful = found.isConsistent ? [] : found.atOdds;
    if (found.odd) verdict.append(...oddPair(goal, found.odd));
    const others = doubtful.filter((pair) => pair !== found.odd?.pair);
    if (others.length > 0)
      verdict.append(
        element("p", { textContent: "ほかに食い違いの大きい組" }),
        element("div", { className: "buttons" }, ...others.map((pair) => namedPair(goal, pair))),
      );
  }

  function oddPair(goal, odd) {
    const pair = goal.pairs[odd.pair];
    const text =
      `ほかの回答ともっとも合わない組は、組 ${pair.number} です。回答では ${meaning(goal, pair, odd.given)} ですが、` +
      `ほかの回答からは ${meaning(goal, pair, odd.suggested)} と考えられます。` +
      "お考えのとおりであれば、そのままでかまいません。";
    return [element("p", { textContent: text }), element("div", { className: "buttons" }, namedPair(goal, odd.pair))];
  }

  // --- answering

  function changed(pair) {
    isSaved = false;
    keep();
    if (pair) showPair(goals[current], pair);
    showProgress();
    showVerdict();
  }

  // Without a position the pair is open again.
  function answer(pair, position) {
    before = { pair, position: answers.get(pair.key) };
    if (position === undefined) answers.delete(pair.key);
    else answers.set(pair.key, position);
    changed(pair);
  }

  function undo() {
    if (!before || !goals[current].pairs.includes(before.pair)) return;
    const { pair, position } = before;
    answer(pair, position);
    focusPair(pair);
  }

  function focusPair(pair) {
    const inputs = byId(pair.key).querySelectorAll("input");
    byId(pair.key).scrollIntoView({ block: "nearest" });
    inputs[answers.get(pair.key) ?? equal].focus();
  }

  const firstOpenGoal = () => Math.max(goals.findIndex((goal) => open(goal.pairs).length > 0), 0);

  // The next open pair of the goal behind the given one, else its first open one, else on to the next goal.
  function goOn(pair) {
    typed = { pair: null, text: "" };
    const left = open(goals[current].pairs);
    const next = left.find((other) => other.number > pair.number) ?? left[0];
    if (next) focusPair(next);
    else byId(byId("next").disabled ? "save" : "next").focus();
  }

  // 2 to 9 is an answer for the left side, "/" and a digit one for the right side. "1" counts at once, but the next key,
  // which may be "/", tells whether it was all.
  function digit(pair, character) {
    const text = typed.pair === pair ? typed.text : "";
    if (text === "1" && character !== "/") {
      goOn(pair);
      const next = pairInFocus();
      if (next) digit(next, character); // else it belongs to no pair
      return;
    }
    if (text === "1") answer(pair, before.position);
    if (character === "/") {
      typed = { pair, text: "/" };
      return;
    }
    const steps = Number(character) - 1;
    answer(pair, text === "/" ? equal + steps : equal - steps);
    if (text === "/" || character !== "1") return goOn(pair);
    typed = { pair, text: "1" };
    focusPair(pair);
  }

  function pairInFocus() {
    const field = document.activeElement.closest(".pair");
    return goals[current].pairs.find((pair) => pair.key === field?.id);
  }

  function key(event, pair) {
    const pressed = event.key.normalize("NFKC");
    const isUndo = (event.ctrlKey || event.metaKey) && pressed.toLowerCase() === "z";
    if (!isUndo && (event.ctrlKey || event.metaKey || event.altKey)) return;
    if (isUndo) undo();
    else if (/^[1-9/]$/.test(pressed)) digit(pair, pressed);
    else if (pressed === "Delete" || pressed === "Backspace") answer(pair, undefined);
    else if (pressed === "Enter") goOn(pair);
    else {
      typed = { pair: null, text: "" };
      return;
    }
    event.preventDefault();
  }

  // --- paper

  function paperRow(pair) {
    const digits = data.scale.map((value, position) =>
      element("span", { textContent: degree(position), className: answers.get(pair.key) === position ? "chosen" : "" }),
    );
    return element(
      "tr",
      {},
      element("td", { className: "number", textContent: pair.number }),
      element("td", { textContent: pair.left.name }),
      element("td", { className: "digits" }, element("div", {}, ...digits)),
      element("td", { textContent: pair.right.name }),
    );
  }

  function layOutPaper() {
    const named = data.words.map((word, position) => `${degree(position)} は「${word}」`);
    const legend = named.slice(equal).filter((text, step) => data.words[equal + step] !== "").join("、") + "です。";
    const parts = goals.flatMap((goal) => [
      element("h2", { textContent: `${goal.index + 1}. ${goal.question}` }),
      explained(data.factors[goal.number].about),
      element("table", {}, element("tbody", {}, ...goal.pairs.map(paperRow))),
    ]);
    byId("paper").replaceChildren(
      element("h1", { textContent: data.problem }),
      element("p", { textContent: byId("whose").textContent }),
      element("p", { textContent: `それぞれの組で、お考えに合う数字を一つだけ○で囲んでください。${legend}` }),
      ...parts,
    );
  }

  // --- the page

  function erase() {
    if (!confirm("この端末に残っている、この調査票の回答をすべて消します。よろしいですか？")) return;
    answers.clear();
    before = null;
    changed(null);
    isSaved = true;
    showGoal(0);
    tell("この端末から回答を消しました。保存したファイルは残っています。");
  }

  function start() {
    byId("problem").textContent = data.problem;
    byId("whose").textContent = data.whose;
    byId("save").addEventListener("click", save);
    byId("erase").addEventListener("click", erase);
    byId("print").addEventListener("click", () => print());
    byId("previous").addEventListener("click", () => goTo(current - 1));
    byId("next").addEventListener("click", () => goTo(current + 1));
    byId("next-open").addEventListener("click", () => {
      const number = open(goals[current].pairs).length > 0 ? current : firstOpenGoal();
      if (number !== current) showGoal(number);
      focusPair(open(goals[number].pairs)[0]);
    });
    byId("load").addEventListener("change", async (event) => {
      const [file] = event.target.files;
      if (file) await load(file);
      event.target.value = ""; // the same file may be chosen again
    });
    window.addEventListener("beforeprint", layOutPaper);
    window.addEventListener("beforeunload", (event) => {
      if (!isKept && !isSaved) event.preventDefault();
    });
    // The same questionnaire in another tab.
    window.addEventListener("storage", (event) => {
      if (event.key !== place) return;
      recall();
      showGoal(current);
    });
    recall();
    isSaved = answers.size === 0;
    showGoal(firstOpenGoal());
    if (answers.size > 0) tell(`この端末に残っていた ${answers.size} 組の回答から続けます。`);
  }

  start();
})();
