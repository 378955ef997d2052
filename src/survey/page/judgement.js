"use strict";
// What the answers under one goal say about each other: the program's own arithmetic, step by step in the same order,
// so that a respondent is told the figures which the calculation will find. Values are those of the upper triangle, row
// by row; items are counted from 0.
const judgement = (() => {
  const tolerance = 1e-6; // of the power method
  const iterationLimit = 200;
  const mostItems = 20;
  // By the number of items itself.
  const randomIndex = [0, 0, 0.58, 0.9, 1.12, 1.24, 1.32, 1.41, 1.45, 1.49, 1.49, 1.51, 1.53];
  const limit = 0.15; // of CI and of CR
  const deviationLimit = 3;
  const equalDistance = 1e-6; // what single precision makes of equal ones

  function pairsOf(n) {
    const pairs = [];
    for (let i = 0; i < n - 1; ++i) for (let j = i + 1; j < n; ++j) pairs.push([i, j]);
    return pairs;
  }

  function matrixOf(values, n) {
    const matrix = Array.from({ length: n }, () => new Array(n).fill(1));
    pairsOf(n).forEach(([i, j], pair) => {
      matrix[i][j] = values[pair];
      matrix[j][i] = 1 / values[pair];
    });
    return matrix;
  }

  // The principal eigenvalue and the weights, the largest of them 1; null when the power method finds none.
  function power(matrix) {
    const n = matrix.length;
    if (n > mostItems) return null;
    let weights = matrix.map((row, i) => (i === 0 ? 1 : 0));
    for (let iteration = 1; iteration <= iterationLimit; ++iteration) {
      const product = matrix.map((row) => row.reduce((sum, value, j) => sum + value * weights[j], 0));
      const eigenvalue = Math.max(...product.map(Math.abs));
      const scaled = product.map((value) => value / eigenvalue);
      const difference = Math.max(...scaled.map((value, i) => Math.abs(weights[i] - value)));
      weights = scaled;
      if (difference <= tolerance) return { eigenvalue, weights };
    }
    return null;
  }

  // The position whose value is nearest by ratio, the first of equally near ones.
  function nearestPosition(value, scale) {
    const distance = (position) => Math.abs(Math.log(value / scale[position]));
    let nearest = 0;
    for (let position = 1; position < scale.length; ++position)
      if (distance(position) < distance(nearest) - equalDistance) nearest = position;
    return nearest;
  }

  // What the answers about all other items suggest for the pair: the geometric mean of the ways round by them.
  function suggestedValue(matrix, i, j) {
    const n = matrix.length;
    let logarithms = 0;
    for (let k = 0; k < n; ++k) if (k !== i && k !== j) logarithms += Math.log(matrix[i][k] * matrix[k][j]);
    return Math.exp(logarithms / (n - 2));
  }

  // The answer furthest from what the others suggest; null when there is none.
  function mostOddPair(matrix, scale) {
    let odd = null;
    let furthest = 0;
    if (matrix.length < 3) return odd;
    pairsOf(matrix.length).forEach(([i, j], pair) => {
      const value = Math.min(Math.max(suggestedValue(matrix, i, j), 1 / scale[0]), scale[0]);
      const given = nearestPosition(matrix[i][j], scale);
      const suggested = nearestPosition(value, scale);
      const distance = Math.abs(Math.log(matrix[i][j] / value));
      if (given === suggested || distance <= furthest + equalDistance) return;
      furthest = distance;
      odd = { pair, given, suggested };
    });
    return odd;
  }

  // Of two or more items. `scale` holds the values of the scale's positions. CI and CR are null where the calculation
  // has no consistency to tell.
  function judge(values, n, scale) {
    const matrix = matrixOf(values, n);
    const found = n < randomIndex.length ? power(matrix) : null;
    const index = found && (found.eigenvalue - n) / (n - 1);
    const ratio = found && index / randomIndex[n];
    const atOdds = [];
    if (found)
      pairsOf(n).forEach(([i, j], pair) => {
        const deviation = Math.abs(found.weights[i] / found.weights[j] - matrix[i][j]);
        if (deviation > deviationLimit) atOdds.push(pair);
      });
    const isConsistent = found !== null && !(index > limit || ratio > limit);
    return { index, ratio, isConsistent, atOdds, odd: mostOddPair(matrix, scale) };
  }

  return { judge, pairsOf };
})();
